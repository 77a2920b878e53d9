// SPDX-License-Identifier: MIT
#include "media/turn_upright.h"

#include "media/byte_block.h"

#include <array>
#include <cstring>
#include <utility>

namespace kez {

namespace {

constexpr std::size_t pixelBytes = 3;

/// Which pixel of the stored picture a pixel of the upright one is. Pixels are numbered from the
/// bottom row on.
class StoredPlace {
public:
    StoredPlace(std::size_t width, std::size_t height, int orientation)
        : width_(width)
        , isTransposed_(orientation >= 5)
        , uprightWidth_(isTransposed_ ? height : width)
        , lastX_(orientation == 2 || orientation == 3 || orientation == 5 || orientation == 6
                  ? width - 1
                  : 0)
        , lastY_(orientation == 3 || orientation == 4 || orientation == 5 || orientation == 8
                  ? height - 1
                  : 0)
    {
    }

    [[nodiscard]] std::size_t operator()(std::size_t upright) const
    {
        std::size_t x = upright % uprightWidth_;
        std::size_t y = upright / uprightWidth_;
        if (isTransposed_)
            std::swap(x, y);
        return (lastY_ != 0 ? lastY_ - y : y) * width_ + (lastX_ != 0 ? lastX_ - x : x);
    }

private:
    std::size_t width_;
    bool isTransposed_;
    std::size_t uprightWidth_;
    std::size_t lastX_; // the column counted backwards from; 0: counted forwards
    std::size_t lastY_;
};

class Marks {
public:
    explicit Marks(std::size_t count)
        : bits_(ByteBlock::zeroed(count / 8 + 1))
    {
    }

    explicit operator bool() const { return static_cast<bool>(bits_); }

    [[nodiscard]] bool has(std::size_t at) const
    {
        return (bits_.data()[at / 8] >> at % 8 & 1) != 0;
    }

    void set(std::size_t at) { bits_.data()[at / 8] |= static_cast<std::uint8_t>(1 << at % 8); }

private:
    ByteBlock bits_;
};

// Every pixel goes to its place, whose pixel goes to its place, and so on until the round is
// closed.
void turnRound(std::uint8_t* pixels, std::size_t start, const StoredPlace& storedPlace, Marks& done)
{
    std::array<std::uint8_t, pixelBytes> first;
    std::memcpy(first.data(), pixels + start * pixelBytes, pixelBytes);
    for (std::size_t to = start;;) {
        const std::size_t from = storedPlace(to);
        done.set(to);
        if (from == start) {
            std::memcpy(pixels + to * pixelBytes, first.data(), pixelBytes);
            return;
        }
        std::memcpy(pixels + to * pixelBytes, pixels + from * pixelBytes, pixelBytes);
        to = from;
    }
}

} // namespace

bool turnUpright(std::uint8_t* pixels, int& width, int& height, int orientation)
{
    if (orientation < 2 || orientation > 8 || width < 1 || height < 1)
        return true;
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const StoredPlace storedPlace(
        static_cast<std::size_t>(width), static_cast<std::size_t>(height), orientation);
    Marks done(count);
    if (!done)
        return false;
    for (std::size_t i = 0; i < count; ++i)
        if (!done.has(i))
            turnRound(pixels, i, storedPlace, done);
    if (orientation >= 5)
        std::swap(width, height);
    return true;
}

} // namespace kez
