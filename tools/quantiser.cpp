// SPDX-License-Identifier: MIT
#include "quantiser.h"

#include "user_error.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <set>
#include <unordered_map>

namespace kez::tools {

namespace {

using Pixels = std::vector<std::uint32_t>;
using ColourMap = std::unordered_map<std::uint32_t, std::uint32_t>; // from a colour to its stand-in
using Histogram = std::unordered_map<std::uint32_t, std::size_t>; // from a colour to its pixels

constexpr std::uint32_t colourBits = 0x00FFFFFF;

bool shows(std::uint32_t pixel)
{
    return pixel >> 24 != 0;
}

std::array<int, 3> channels(std::uint32_t colour)
{
    return { static_cast<int>(colour >> 16 & 255), static_cast<int>(colour >> 8 & 255),
        static_cast<int>(colour & 255) };
}

struct PixDeleter {
    void operator()(Pix* pix) const { pixDestroy(&pix); }
};

using OwnedPix = std::unique_ptr<Pix, PixDeleter>;

// The visible pixels as a picture of the library's: in rows of one length, the last filled up with
// the last pixel.
OwnedPix libraryPicture(const Pixels& visible)
{
    constexpr std::size_t longestRow = 1024;
    const std::size_t width = std::min(visible.size(), longestRow);
    const std::size_t height = (visible.size() + width - 1) / width;
    OwnedPix pix(pixCreateNoInit(static_cast<int>(width), static_cast<int>(height), 32));
    if (!pix)
        throw UserError("there is not enough memory to reduce the colours");
    l_uint32* to = pixGetData(pix.get()); // rows of 32 bits have no gaps
    for (std::size_t i = 0; i < width * height; ++i)
        to[i] = visible[std::min(i, visible.size() - 1)] << 8;
    return pix;
}

Pixels choosePalette(const Pixels& visible, int colours)
{
    constexpr int noDither = 0;
    constexpr int bitsOfIndex = 8;
    constexpr int bitsLookedAt = 6; // of each channel
    constexpr int everyPixel = 1;
    constexpr int noBlackAndWhite = 0;
    setMsgSeverity(L_SEVERITY_NONE);
    const OwnedPix source = libraryPicture(visible);
    const OwnedPix reduced(pixMedianCutQuantGeneral(
        source.get(), noDither, bitsOfIndex, colours, bitsLookedAt, everyPixel, noBlackAndWhite));
    if (!reduced)
        throw UserError("the colours could not be reduced");
    Pixels palette;
    PixColormap* map = pixGetColormap(reduced.get());
    for (int i = 0; i < pixcmapGetCount(map); ++i) {
        l_uint32 colour = 0;
        pixcmapGetColor32(map, i, &colour);
        palette.push_back(colour >> 8);
    }
    return palette;
}

int distance(std::uint32_t a, std::uint32_t b)
{
    const auto left = channels(a);
    const auto right = channels(b);
    int sum = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        sum += (left[i] - right[i]) * (left[i] - right[i]);
    return sum;
}

std::size_t nearest(std::uint32_t colour, const Pixels& palette)
{
    int least = std::numeric_limits<int>::max();
    std::size_t best = 0;
    for (std::size_t i = 0; i < palette.size(); ++i) {
        const int found = distance(colour, palette[i]);
        if (found < least) {
            least = found;
            best = i;
        }
    }
    return best;
}

// The pixels that one entry of the palette stands for.
struct Share {
    std::array<double, 3> sums {};
    double count = 0;

    void add(std::uint32_t colour, double pixels)
    {
        const auto values = channels(colour);
        for (std::size_t i = 0; i < sums.size(); ++i)
            sums[i] += values[i] * pixels;
        count += pixels;
    }

    [[nodiscard]] std::uint32_t mean() const
    {
        std::uint32_t colour = 0;
        for (const double sum : sums)
            colour = colour << 8 | static_cast<std::uint32_t>(sum / count + 0.5);
        return colour;
    }
};

// One round: every entry becomes the mean of what it stands for. Those that stand for nothing
// become the colours that are farthest from their entries.
void refine(Pixels& palette, const Histogram& histogram)
{
    std::vector<Share> shares(palette.size());
    std::vector<std::pair<int, std::uint32_t>> losses; // by colour
    for (const auto& [colour, pixels] : histogram) {
        const std::size_t entry = nearest(colour, palette);
        shares[entry].add(colour, static_cast<double>(pixels));
        losses.emplace_back(distance(colour, palette[entry]), colour);
    }
    std::ranges::sort(losses, std::greater());
    auto farthest = losses.begin();
    for (std::size_t i = 0; i < palette.size(); ++i)
        palette[i] = shares[i].count > 0 ? shares[i].mean() : (farthest++)->second;
}

void replace(Pixels& pixels, const ColourMap& standIns, ColourLoss& loss)
{
    double squares = 0;
    std::size_t count = 0;
    for (std::uint32_t& pixel : pixels) {
        if (!shows(pixel))
            continue;
        const auto before = channels(pixel);
        pixel = (pixel & ~colourBits) | standIns.at(pixel & colourBits);
        const auto after = channels(pixel);
        for (std::size_t i = 0; i < before.size(); ++i) {
            const int difference = std::abs(before[i] - after[i]);
            squares += difference * difference;
            loss.largest = std::max(loss.largest, difference);
            ++count;
        }
    }
    loss.mean = std::sqrt(squares / static_cast<double>(count));
}

} // namespace

ColourLoss reduceColours(Pixels& pixels, int colours)
{
    constexpr int rounds = 8; // more hardly lessen the loss
    Pixels visible;
    Histogram histogram;
    for (const std::uint32_t pixel : pixels) {
        if (!shows(pixel))
            continue;
        visible.push_back(pixel & colourBits);
        ++histogram[pixel & colourBits];
    }
    ColourLoss loss { .coloursBefore = histogram.size(), .coloursAfter = histogram.size() };
    if (histogram.size() <= static_cast<std::size_t>(colours))
        return loss;
    Pixels palette = choosePalette(visible, colours);
    palette.resize(static_cast<std::size_t>(colours), palette.back());
    for (int round = 0; round < rounds; ++round)
        refine(palette, histogram);
    ColourMap standIns;
    std::set<std::uint32_t> used;
    for (const auto& [colour, pixelCount] : histogram) {
        const std::uint32_t standIn = palette[nearest(colour, palette)];
        standIns.emplace(colour, standIn);
        used.insert(standIn);
    }
    loss.coloursAfter = used.size();
    replace(pixels, standIns, loss);
    return loss;
}

} // namespace kez::tools
