// SPDX-License-Identifier: MIT
/// A person's photograph, as the camera would have taken it: any JPEG or PNG file, upright, its
/// middle cut to 4 : 3 and reduced to a picture by averaging areas.
///
/// Memory stays small whatever the size: rows are reduced as they are decoded. What cannot be
/// decoded so has a bound of its own (a JPEG file with several scans, an interlaced PNG file).
#pragma once

#include "picture.h"

#include <optional>
#include <string>

namespace kez::files {
class Reader;
}

namespace kez::driver {

constexpr std::uint64_t mostPixels = 200'000'000;

/// Empty, with a few words in `problem` ("ends too early"), when the file is no such picture.
[[nodiscard]] std::optional<Picture> readPhotograph(files::Reader& file, std::string& problem);

} // namespace kez::driver
