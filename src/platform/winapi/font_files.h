// SPDX-License-Identifier: MIT
/// Which file of the system's holds the face for a font.
#pragma once

#include <optional>
#include <string>

namespace kez::winapi {

struct FontRequest;

struct FontFile {
    std::string path;
    int index = 0; ///< Of the face in the file.
    bool lighter = false; ///< A bold face was asked for and this one is not.
    bool upright = false; ///< An italic face was asked for and this one is not.
};

/// The closest installed face; none when nothing at all is installed.
[[nodiscard]] std::optional<FontFile> findFontFile(const FontRequest& request);

} // namespace kez::winapi
