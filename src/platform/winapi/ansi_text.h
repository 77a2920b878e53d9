// SPDX-License-Identifier: MIT
/// The texts of the Win32 names are bytes of code page 1252; SDL, fontconfig and FreeType take
/// Unicode.
#pragma once

#include "windef.h"

#include <string>
#include <string_view>

namespace kez::winapi {

[[nodiscard]] char32_t unicodeOf(BYTE character);
[[nodiscard]] BYTE ansiOf(char32_t character); ///< '?' for what the code page does not have.

[[nodiscard]] std::string utf8Of(std::string_view ansi);
[[nodiscard]] std::string ansiOf(std::string_view utf8);

} // namespace kez::winapi
