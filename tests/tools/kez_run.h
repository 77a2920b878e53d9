// SPDX-License-Identifier: MIT
/// The kez command in a test: its arguments in, its status and its words out.
#pragma once

#include "tools/kez_app.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace kez::test {

struct KezRun {
    int status = 0;
    std::string out;
    std::string errors;
};

inline KezRun runKez(std::initializer_list<std::string> arguments)
{
    std::vector<const char*> argv { "kez" };
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    KezRun run;
    run.status = tools::runKez(static_cast<int>(argv.size()), argv.data());
    run.out = testing::internal::GetCapturedStdout();
    run.errors = testing::internal::GetCapturedStderr();
    return run;
}

} // namespace kez::test
