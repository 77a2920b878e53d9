// SPDX-License-Identifier: MIT
#include "pixel_format.h"

#include <bit>

namespace kez::winapi {

Colour Colour::of(COLORREF reference)
{
    return { static_cast<BYTE>(reference), static_cast<BYTE>(reference >> 8),
        static_cast<BYTE>(reference >> 16) };
}

std::optional<PixelFormat::Channel> PixelFormat::Channel::of(DWORD mask)
{
    if (mask == 0)
        return std::nullopt;
    const int shift = std::countr_zero(mask);
    const int width = std::popcount(mask);
    if (std::countr_one(mask >> shift) != width)
        return std::nullopt;
    return Channel { mask, shift, width };
}

DWORD PixelFormat::Channel::pack(BYTE value) const
{
    const DWORD sized = width <= 8 ? static_cast<DWORD>(value >> (8 - width))
                                   : static_cast<DWORD>(value) << (width - 8);
    return sized << shift;
}

BYTE PixelFormat::Channel::unpack(DWORD pixel) const
{
    const DWORD value = (pixel & mask) >> shift;
    if (width >= 8)
        return static_cast<BYTE>(value >> (width - 8));
    DWORD whole = value << (8 - width);
    for (int filled = width; filled < 8; filled *= 2)
        whole |= whole >> filled;
    return static_cast<BYTE>(whole);
}

std::optional<PixelFormat> PixelFormat::from(const DDPIXELFORMAT& description)
{
    const DWORD bits = description.dwRGBBitCount;
    const bool isPlain = description.dwSize == sizeof(DDPIXELFORMAT)
        && (description.dwFlags & ~DDPF_ALPHAPIXELS) == DDPF_RGB;
    if (!isPlain || (bits != 16 && bits != 24 && bits != 32))
        return std::nullopt;
    const auto red = Channel::of(description.dwRBitMask);
    const auto green = Channel::of(description.dwGBitMask);
    const auto blue = Channel::of(description.dwBBitMask);
    if (!red || !green || !blue)
        return std::nullopt;
    const DWORD all = red->mask | green->mask | blue->mask;
    const bool overlap = std::popcount(all) != red->width + green->width + blue->width;
    if (overlap || (bits < 32 && (all >> bits) != 0))
        return std::nullopt;
    PixelFormat format;
    format.bits_ = bits;
    format.alphaMask_ = description.dwRGBAlphaBitMask;
    format.red_ = *red;
    format.green_ = *green;
    format.blue_ = *blue;
    return format;
}

PixelFormat PixelFormat::ofDepth(DWORD bits)
{
    DDPIXELFORMAT description {};
    description.dwSize = sizeof description;
    description.dwFlags = DDPF_RGB;
    description.dwRGBBitCount = bits;
    description.dwRBitMask = bits == 16 ? 0xF800 : 0xFF0000;
    description.dwGBitMask = bits == 16 ? 0x07E0 : 0x00FF00;
    description.dwBBitMask = bits == 16 ? 0x001F : 0x0000FF;
    return from(description).value_or(PixelFormat {});
}

DDPIXELFORMAT PixelFormat::description() const
{
    DDPIXELFORMAT description {};
    description.dwSize = sizeof description;
    description.dwFlags = DDPF_RGB | (alphaMask_ != 0 ? DDPF_ALPHAPIXELS : 0);
    description.dwRGBBitCount = bits_;
    description.dwRBitMask = red_.mask;
    description.dwGBitMask = green_.mask;
    description.dwBBitMask = blue_.mask;
    description.dwRGBAlphaBitMask = alphaMask_;
    return description;
}

DWORD PixelFormat::pack(Colour colour) const
{
    return red_.pack(colour.red) | green_.pack(colour.green) | blue_.pack(colour.blue);
}

Colour PixelFormat::unpack(DWORD pixel) const
{
    return { red_.unpack(pixel), green_.unpack(pixel), blue_.unpack(pixel) };
}

DWORD PixelFormat::read(const BYTE* pixel) const
{
    DWORD value = 0;
    for (int i = 0; i < bytes(); ++i)
        value |= static_cast<DWORD>(pixel[i]) << (8 * i);
    return value;
}

void PixelFormat::write(BYTE* pixel, DWORD value) const
{
    for (int i = 0; i < bytes(); ++i)
        pixel[i] = static_cast<BYTE>(value >> (8 * i));
}

void PixelFormat::paint(BYTE* pixel, Colour colour) const
{
    const DWORD channels = red_.mask | green_.mask | blue_.mask;
    write(pixel, (read(pixel) & ~channels) | pack(colour));
}

} // namespace kez::winapi
