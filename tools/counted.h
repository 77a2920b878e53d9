// SPDX-License-Identifier: MIT
/// "1 record", "2 records": a number of things, for a person to read.
#pragma once

#include <cstddef>
#include <string>

namespace kez::tools {

/// For nouns that take an s.
inline std::string counted(std::size_t number, const char* noun)
{
    return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

} // namespace kez::tools
