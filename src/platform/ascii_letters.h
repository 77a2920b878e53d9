// SPDX-License-Identifier: MIT
/// Letters of names without their case: A to Z become a to z and every other byte stays as it is,
/// whatever the system's language.
#pragma once

#include <string>

namespace kez {

constexpr char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string lowerCase(std::string text)
{
    for (char& c : text)
        c = lowerCase(c);
    return text;
}

} // namespace kez
