// SPDX-License-Identifier: MIT
/// How the pixels of a surface are laid out: red, green and blue at any places of a word of 16, 24
/// or 32 bits, lowest byte first in memory.
#pragma once

#include "ddraw.h"

#include <optional>

namespace kez::winapi {

/// A colour with eight bits a channel.
struct Colour {
    BYTE red, green, blue;

    static Colour of(COLORREF reference);
    friend bool operator==(const Colour&, const Colour&) = default;
};

class PixelFormat {
public:
    /// The place of one colour in a pixel.
    struct Channel {
        DWORD mask = 0;
        int shift = 0;
        int width = 0;

        static std::optional<Channel> of(DWORD mask); ///< None for no bits, or for bits with a gap.
        [[nodiscard]] DWORD pack(BYTE value) const;
        [[nodiscard]] BYTE unpack(DWORD pixel) const;
        friend bool operator==(const Channel&, const Channel&) = default;
    };

    /// None when the description is not of plain colours in 16, 24 or 32 bits with three masks that
    /// are contiguous, not empty and do not overlap.
    static std::optional<PixelFormat> from(const DDPIXELFORMAT& description);

    /// What a display of that depth has: 5, 6 and 5 bits, else 8 a channel; red highest.
    static PixelFormat ofDepth(DWORD bits);

    [[nodiscard]] DWORD bits() const { return bits_; }

    [[nodiscard]] int bytes() const { return static_cast<int>(bits_ / 8); }

    [[nodiscard]] DDPIXELFORMAT description() const;

    [[nodiscard]] DWORD pack(Colour colour) const; ///< Low bits are cut off.
    [[nodiscard]] Colour unpack(DWORD pixel) const; ///< Missing low bits repeat the high ones.

    [[nodiscard]] DWORD read(const BYTE* pixel) const;
    void write(BYTE* pixel, DWORD value) const;

    /// Gives the pixel a colour; bits that belong to no channel stay.
    void paint(BYTE* pixel, Colour colour) const;

    friend bool operator==(const PixelFormat&, const PixelFormat&) = default;

private:
    DWORD bits_ = 32;
    DWORD alphaMask_ = 0;
    Channel red_, green_, blue_;
};

/// The pixels of a surface as drawing code sees them.
struct PixelView {
    BYTE* pixels = nullptr;
    int pitch = 0;
    int width = 0;
    int height = 0;
    const PixelFormat* format = nullptr;

    explicit operator bool() const { return pixels != nullptr; }

    [[nodiscard]] BYTE* at(int x, int y) const
    {
        return pixels + static_cast<std::ptrdiff_t>(y) * pitch
            + static_cast<std::ptrdiff_t>(x) * format->bytes();
    }
};

} // namespace kez::winapi
