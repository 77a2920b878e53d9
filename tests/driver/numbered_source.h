// SPDX-License-Identifier: MIT
/// Pictures that bear a number each, so that a test sees which one came: all of one colour.
#pragma once

#include "picture_files.h"
#include "picture_source.h"
#include "raw_form.h"

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

    /// The number of a picture fetched; 0 for an unexposed one.
    static int numberOf(std::span<const unsigned char, MVI_RAW_BYTES> raw)
    {
        std::array<std::uint8_t, MVI_PICTURE_BYTES> picture;
        if (!colourize(raw, picture))
            return -1;
        return (picture[0] - firstBrightness + 2) / 4;
    }

private:
    static constexpr int firstBrightness = 40; // that of an unexposed picture

    int atStart_;
    int taken_ = 0;
};

} // namespace kez::driver::test
