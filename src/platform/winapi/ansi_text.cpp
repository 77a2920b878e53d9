// SPDX-License-Identifier: MIT
#include "ansi_text.h"

#include <algorithm>
#include <array>

namespace kez::winapi {

namespace {

// Bytes 0x80 to 0x9F; the others are their own code points. Five are not assigned.
constexpr std::array<char32_t, 32> upperControls { 0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026,
    0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018,
    0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,
    0x017E, 0x0178 };

constexpr BYTE firstControl = 0x80;
constexpr char32_t badSequence = 0xFFFD;

void appendUtf8(std::string& text, char32_t c)
{
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | (c >> 6));
        text += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        if (c < 0x10000) {
            text += static_cast<char>(0xE0 | (c >> 12));
        } else {
            text += static_cast<char>(0xF0 | ((c >> 18) & 7));
            text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        }
        text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (c & 0x3F));
    }
}

char32_t takeUtf8(std::string_view& text)
{
    const auto first = static_cast<BYTE>(text.front());
    text.remove_prefix(1);
    if (first < 0x80)
        return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    char32_t c = first & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        if (text.empty() || (static_cast<BYTE>(text.front()) & 0xC0) != 0x80)
            return badSequence;
        c = (c << 6) | (static_cast<BYTE>(text.front()) & 0x3F);
        text.remove_prefix(1);
    }
    return c;
}

} // namespace

char32_t unicodeOf(BYTE character)
{
    const auto place = static_cast<std::size_t>(character - firstControl);
    return character >= firstControl && place < upperControls.size() ? upperControls[place]
                                                                     : char32_t { character };
}

char32_t takeDrawn(std::string_view& text)
{
    std::string_view rest = text;
    const char32_t character = takeUtf8(rest);
    std::string sequence;
    if (character != badSequence)
        appendUtf8(sequence, character);
    if (!sequence.empty() && text.starts_with(sequence)) {
        text.remove_prefix(sequence.size());
        return character;
    }
    const auto byte = static_cast<BYTE>(text.front());
    text.remove_prefix(1);
    return unicodeOf(byte);
}

BYTE ansiOf(char32_t character)
{
    const auto* found = std::ranges::find(upperControls, character);
    if (found != upperControls.end())
        return static_cast<BYTE>(firstControl + (found - upperControls.begin()));
    return character < firstControl || (character >= 0xA0 && character <= 0xFF)
        ? static_cast<BYTE>(character)
        : BYTE { '?' };
}

std::string utf8Of(std::string_view ansi)
{
    std::string text;
    for (const char c : ansi)
        appendUtf8(text, unicodeOf(static_cast<BYTE>(c)));
    return text;
}

std::string ansiOf(std::string_view utf8)
{
    std::string text;
    while (!utf8.empty())
        text += static_cast<char>(ansiOf(takeUtf8(utf8)));
    return text;
}

} // namespace kez::winapi
