// SPDX-License-Identifier: MIT
#include "font_files.h"

#include "ansi_text.h"
#include "font.h"
#include "wingdi.h"

#include <fontconfig/fontconfig.h>

#include <map>
#include <memory>
#include <tuple>

namespace kez::winapi {

namespace {

struct PatternDestroyer {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};

using Pattern = std::unique_ptr<FcPattern, PatternDestroyer>;

struct ConfigDestroyer {
    void operator()(FcConfig* configuration) const { FcConfigDestroy(configuration); }
};

using Configuration = std::unique_ptr<FcConfig, ConfigDestroyer>;

constexpr const char* usualFace = "DejaVu Sans";
constexpr const char* usualFixedFace = "DejaVu Sans Mono";

const FcChar8* text(const std::string& value)
{
    return reinterpret_cast<const FcChar8*>(value.c_str());
}

Pattern wanted(FcConfig* configuration, const FontRequest& request, int weight, int slant)
{
    const std::string family = !request.face.empty() ? utf8Of(request.face)
        : request.fixedPitch                         ? usualFixedFace
                                                     : usualFace;
    Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, text(family));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, weight);
    FcPatternAddInteger(pattern.get(), FC_SLANT, slant);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(configuration, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

int weightOf(const FontRequest& request)
{
    const bool given = request.weight > 0 && request.weight <= 1000;
    return FcWeightFromOpenType(given ? request.weight : FW_NORMAL);
}

std::optional<FontFile> search(const FontRequest& request)
{
    const Configuration configuration(FcInitLoadConfigAndFonts());
    if (configuration == nullptr)
        return std::nullopt;
    const int weight = weightOf(request);
    const int slant = request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN;
    FcResult result = FcResultNoMatch;
    const Pattern pattern = wanted(configuration.get(), request, weight, slant);
    const Pattern found(FcFontMatch(configuration.get(), pattern.get(), &result));
    FcChar8* path = nullptr;
    if (found == nullptr || FcPatternGetString(found.get(), FC_FILE, 0, &path) != FcResultMatch)
        return std::nullopt;
    FontFile file { .path = reinterpret_cast<const char*>(path) };
    int foundWeight = weight;
    int foundSlant = slant;
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &file.index);
    FcPatternGetInteger(found.get(), FC_WEIGHT, 0, &foundWeight);
    FcPatternGetInteger(found.get(), FC_SLANT, 0, &foundSlant);
    file.lighter = weight >= FC_WEIGHT_DEMIBOLD && foundWeight < FC_WEIGHT_DEMIBOLD;
    file.upright = request.italic && foundSlant == FC_SLANT_ROMAN;
    return file;
}

} // namespace

// The list of all fonts takes a while to read and much room to keep: what was found is kept
// instead.
std::optional<FontFile> findFontFile(const FontRequest& request)
{
    using Wish = std::tuple<std::string, int, bool, bool>;
    static auto& known = *new std::map<Wish, std::optional<FontFile>>;
    const Wish wish { request.face, request.weight, request.italic, request.fixedPitch };
    const auto found = known.find(wish);
    return found != known.end() ? found->second : known[wish] = search(request);
}

} // namespace kez::winapi
