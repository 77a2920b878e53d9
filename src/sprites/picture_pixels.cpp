// SPDX-License-Identifier: MIT
#include "sprites/picture_pixels.h"

#include <cstddef>
#include <cstring>
#include <vector>

namespace kez {

namespace {

// Source position that each target position along one side shows.
class NearestMap {
public:
    NearestMap(int source, int target)
        : from_(static_cast<std::size_t>(target))
    {
        // The ratio is a float; its product with an offset is exact in double.
        const double ratio = static_cast<float>(source) / static_cast<float>(target);
        const int half = target / 2;
        for (int i = -half; i < half; ++i)
            at(i + half) = static_cast<int>(i * ratio) + source / 2;
        if (target == 1)
            at(0) = source / 2;
        else if (target % 2 == 1)
            at(target - 1) = at(target - 2);
    }

    [[nodiscard]] const std::vector<int>& positions() const { return from_; }

private:
    int& at(int position) { return from_[static_cast<std::size_t>(position)]; }

    std::vector<int> from_;
};

template <std::ptrdiff_t pixelBytes>
void scale(const std::uint8_t* source, int sw, int sh, std::uint8_t* target, int tw, int th)
{
    if (source == nullptr || target == nullptr || sw <= 0 || sh <= 0 || tw <= 0 || th <= 0)
        return;
    const NearestMap columns(sw, tw);
    const NearestMap rows(sh, th);
    for (const int row : rows.positions()) {
        const std::uint8_t* const from = source + std::ptrdiff_t { row } * sw * pixelBytes;
        for (const int column : columns.positions()) {
            std::memcpy(target, from + column * pixelBytes, std::size_t { pixelBytes });
            target += pixelBytes;
        }
    }
}

} // namespace

void scaleNearest(
    const std::uint32_t* source, int sw, int sh, std::uint32_t* target, int tw, int th)
{
    scale<4>(reinterpret_cast<const std::uint8_t*>(source), sw, sh,
        reinterpret_cast<std::uint8_t*>(target), tw, th);
}

void scaleNearest(const std::uint8_t* source, int sw, int sh, std::uint8_t* target, int tw, int th)
{
    scale<3>(source, sw, sh, target, tw, th);
}

void toOpaquePixels(const std::uint8_t* picture, std::uint32_t* pixels, int count)
{
    for (int i = 0; i < count; ++i, picture += 3)
        pixels[i] = 0xFF000000 | std::uint32_t { picture[2] } << 16
            | std::uint32_t { picture[1] } << 8 | picture[0];
}

} // namespace kez
