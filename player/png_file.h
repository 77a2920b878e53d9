// SPDX-License-Identifier: MIT
/// PNG files in and out of the player's pictures.
#pragma once

#include "picture.h"

#include <optional>
#include <string>

namespace kez::player {

/// The whole file as one picture with opacity. Empty when there is no such file or it is no PNG;
/// the reason goes to the debugger output.
[[nodiscard]] std::optional<Picture> readPng(const std::string& path);

/// Writes the picture without its opacity, whole or not at all; false when it cannot.
[[nodiscard]] bool writePng(const std::string& path, const Picture& picture);

} // namespace kez::player
