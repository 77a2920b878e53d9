// SPDX-License-Identifier: MIT
#include "sprite_forms.h"

#include <algorithm>
#include <array>
#include <optional>

namespace kez::tools {

namespace {

using Records = std::vector<std::vector<std::uint8_t>>;

constexpr unsigned allowed(SpriteMode mode)
{
    return 1u << static_cast<unsigned>(mode);
}

constexpr unsigned raw = allowed(SpriteMode::Raw);
constexpr unsigned shortRuns = allowed(SpriteMode::ShortRuns);
constexpr unsigned longRuns = allowed(SpriteMode::LongRuns);

constexpr std::array forms {
    SpriteForm { "auto", 0, raw | shortRuns | longRuns },
    SpriteForm { "raw32", 32, raw },
    SpriteForm { "short32", 32, shortRuns },
    SpriteForm { "long32", 32, longRuns },
    SpriteForm { "runs32", 32, shortRuns | longRuns },
    SpriteForm { "raw8", 8, raw },
    SpriteForm { "short8", 8, shortRuns },
    SpriteForm { "long8", 8, longRuns },
    SpriteForm { "palette8", 8, raw | shortRuns | longRuns },
};

// Runs leave out what cannot be seen at all, so there opacity 0 needs no opacity plane.
bool needsOpacity(const SpritePicture& picture, SpriteMode mode)
{
    return std::any_of(picture.pixels.begin(), picture.pixels.end(), [&](std::uint32_t pixel) {
        const std::uint32_t opacity = pixel >> 24;
        return opacity != 255 && (opacity != 0 || mode == SpriteMode::Raw);
    });
}

Records encode(const SpritePicture& picture, int bits, SpriteMode mode)
{
    const bool withAlpha = needsOpacity(picture, mode);
    SpriteSource source {
        .name = picture.name + ".sp5",
        .x = picture.x,
        .y = picture.y,
        .depth = picture.depth,
        .width = picture.width,
        .height = picture.height,
        .pixels = picture.pixels,
        .mode = mode,
        .bits = bits,
        .stored = {},
        .withAlpha = withAlpha,
        .paletteName = bits == 8 ? picture.name + ".pal" : std::string(),
        .alphaName = bits == 8 && withAlpha ? picture.name + ".alp" : std::string(),
    };
    const std::optional<EncodedSprite> encoded = encodeSprite(source);
    if (!encoded)
        return {};
    Records records { encoded->sprite };
    for (const auto* companion : { &encoded->palette, &encoded->alpha }) {
        if (!companion->empty())
            records.push_back(*companion);
    }
    return records;
}

std::size_t totalBytes(const Records& records)
{
    std::size_t sum = 0;
    for (const auto& record : records)
        sum += record.size();
    return sum;
}

} // namespace

const SpriteForm* spriteFormNamed(std::string_view name)
{
    const auto* form = std::find_if(
        forms.begin(), forms.end(), [&](const SpriteForm& each) { return each.name == name; });
    return form != forms.end() ? form : nullptr;
}

const SpriteForm& exactForm(int bits, SpriteMode mode)
{
    return *std::find_if(forms.begin(), forms.end(),
        [&](const SpriteForm& each) { return each.bits == bits && each.modes == allowed(mode); });
}

std::string spriteFormNames()
{
    std::string names;
    for (const SpriteForm& form : forms)
        names += (names.empty() ? "" : ", ") + std::string(form.name);
    return names;
}

Records encodeSmallest(const SpritePicture& picture, const SpriteForm& form)
{
    Records best;
    for (const int bits : { 8, 32 }) {
        for (const SpriteMode mode :
            { SpriteMode::Raw, SpriteMode::ShortRuns, SpriteMode::LongRuns }) {
            if ((form.bits != 0 && form.bits != bits) || (form.modes & allowed(mode)) == 0)
                continue;
            Records records = encode(picture, bits, mode);
            if (!records.empty() && (best.empty() || totalBytes(records) < totalBytes(best)))
                best = std::move(records);
        }
    }
    return best;
}

} // namespace kez::tools
