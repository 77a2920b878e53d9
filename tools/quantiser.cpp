// SPDX-License-Identifier: MIT
#include "quantiser.h"

#include "user_error.h"

#include <leptonica/allheaders.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <unordered_map>

namespace kez::tools {

namespace {

using Pixels = std::vector<std::uint32_t>;
using ColourMap = std::unordered_map<std::uint32_t, std::uint32_t>; // from a colour to its stand-in

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

std::uint32_t nearest(std::uint32_t colour, const Pixels& palette)
{
    const auto sought = channels(colour);
    int least = std::numeric_limits<int>::max();
    std::uint32_t best = 0;
    for (const std::uint32_t entry : palette) {
        const auto has = channels(entry);
        int distance = 0;
        for (std::size_t i = 0; i < has.size(); ++i)
            distance += (has[i] - sought[i]) * (has[i] - sought[i]);
        if (distance < least) {
            least = distance;
            best = entry;
        }
    }
    return best;
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
    Pixels visible;
    ColourMap standIns;
    for (const std::uint32_t pixel : pixels) {
        if (!shows(pixel))
            continue;
        visible.push_back(pixel & colourBits);
        standIns.emplace(pixel & colourBits, 0);
    }
    ColourLoss loss { .coloursBefore = standIns.size(), .coloursAfter = standIns.size() };
    if (standIns.size() <= static_cast<std::size_t>(colours))
        return loss;
    const Pixels palette = choosePalette(visible, colours);
    for (auto& [colour, standIn] : standIns)
        standIn = nearest(colour, palette);
    loss.coloursAfter = palette.size();
    replace(pixels, standIns, loss);
    return loss;
}

} // namespace kez::tools
