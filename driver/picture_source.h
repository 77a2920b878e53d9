// SPDX-License-Identifier: MIT
/// Where the camera's pictures come from.
#pragma once

#include "picture.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kez::driver {

class PictureSource {
public:
    /// Waiting: only what has been taken by now. Pressed: one in any case, if there are any at all.
    enum class Shutter { Waiting, Pressed };

    PictureSource() = default;
    virtual ~PictureSource() = default;
    PictureSource(const PictureSource&) = delete;
    PictureSource& operator=(const PictureSource&) = delete;

    /// The next picture taken by `now` (milliseconds, as `timeGetTime` counts them). May take the
    /// time that reading a photograph takes. Called on one thread at a time.
    [[nodiscard]] virtual std::optional<Picture> next(std::uint32_t now, Shutter shutter) = 0;

    /// How many pictures are in the camera when it is first opened.
    [[nodiscard]] virtual int atStart() const { return 0; }
};

/// Null, and a sentence in `problem`, when the directory holds no demo pictures.
[[nodiscard]] std::shared_ptr<PictureSource> makeDemoSource(
    std::string_view directory, std::string& problem);

/// Null, and a sentence in `problem`, when there is no such folder.
[[nodiscard]] std::shared_ptr<PictureSource> makeFolderSource(
    std::string_view directory, std::string& problem);

} // namespace kez::driver
