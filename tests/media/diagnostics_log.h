// SPDX-License-Identifier: MIT
/// What is written to the debugger output while the object lives.
#pragma once

#include "control_kernel.h"

#include <string>

namespace kez::test {

class DiagnosticsLog {
public:
    DiagnosticsLog()
    {
        winapi::setDebugOutputHook(
            [](const char* line, void* log) { *static_cast<std::string*>(log) += line; }, &text);
    }

    ~DiagnosticsLog() { winapi::setDebugOutputHook(nullptr); }

    DiagnosticsLog(const DiagnosticsLog&) = delete;
    DiagnosticsLog& operator=(const DiagnosticsLog&) = delete;

    std::string text;
};

} // namespace kez::test
