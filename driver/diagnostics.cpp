// SPDX-License-Identifier: MIT
#include "diagnostics.h"

#include <windows.h>

#include <string>

namespace kez::driver {

void tell(std::string_view file, std::string_view problem)
{
    std::string line = "camera: ";
    line.append(file).append(" ").append(problem).append("; it is skipped\n");
    OutputDebugStringA(line.c_str());
}

} // namespace kez::driver
