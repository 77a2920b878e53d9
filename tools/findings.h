// SPDX-License-Identifier: MIT
/// What a check of an archive found, in lines that an artist understands.
#pragma once

#include <string>
#include <vector>

namespace kez::tools {

struct Findings {
    std::vector<std::string> faults; ///< Has to be mended.
    std::vector<std::string> notes; ///< May be meant so.
};

} // namespace kez::tools
