// SPDX-License-Identifier: MIT
/// The sound that plays over and over while the host wants music.
#pragma once

namespace kez {

constexpr const char* songName = "kezsong";

} // namespace kez
