// SPDX-License-Identifier: MIT
/// Pictures that bear a number each, so that a test sees which one came: all of one colour.
#pragma once

#include "picture_files.h"
#include "picture_source.h"
#include "raw_form.h"

#include <cstdlib>
#include <span>

namespace kez::driver::test {

class NumberedSource final : public PictureSource {
public:
    explicit NumberedSource(int atStart)
        : atStart_(atStart)
    {
    }

    std::optional<Picture> next(std::uint32_t, Shutter shutter) override
    {
        if (shutter == Shutter::Waiting && taken_ >= atStart_)
            return std::nullopt;
        ++taken_;
        const int brightness = firstBrightness + taken_ * 4;
        return plainPicture(brightness, brightness, brightness);
    }

    int atStart() const override { return atStart_; }

    /// The number of a picture fetched; 0 for the sample that is in an unused place.
    static int numberOf(std::span<const unsigned char, MVI_RAW_BYTES> raw)
    {
        std::array<std::uint8_t, MVI_PICTURE_BYTES> picture;
        return colourize(raw, picture) ? numberIn(picture) : -1;
    }

    static int numberIn(std::span<const std::uint8_t, MVI_PICTURE_BYTES> picture)
    {
        const bool isGrey = std::abs(picture[0] - picture[1]) <= 2;
        return isGrey ? (picture[0] - firstBrightness + 2) / 4 : 0;
    }

private:
    static constexpr int firstBrightness = 40;

    int atStart_;
    int taken_ = 0;
};

} // namespace kez::driver::test
