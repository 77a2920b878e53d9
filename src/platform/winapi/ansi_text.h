// SPDX-License-Identifier: MIT
/// The texts of the Win32 names are bytes of code page 1252; SDL, fontconfig and FreeType take
/// Unicode. Texts that are drawn may also be UTF-8, since the names of files are.
#pragma once

#include "windef.h"

#include <string>
#include <string_view>

namespace kez::winapi {

[[nodiscard]] char32_t unicodeOf(BYTE character);
/// Takes the first character off a text that is drawn: a whole, shortest UTF-8 sequence, or else
/// one byte of the code page. The text must not be empty.
[[nodiscard]] char32_t takeDrawn(std::string_view& text);

[[nodiscard]] BYTE ansiOf(char32_t character); ///< '?' for what the code page does not have.

[[nodiscard]] std::string utf8Of(std::string_view ansi);
[[nodiscard]] std::string ansiOf(std::string_view utf8);

} // namespace kez::winapi
