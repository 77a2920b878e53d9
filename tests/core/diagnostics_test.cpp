// SPDX-License-Identifier: MIT
#include "core/diagnostics.h"

#include "support/debug_output.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace kez {
namespace {

TEST(Diagnostics, areWrittenInThreeWrites)
{
    test::DebugOutput output;
    debugPrint("%s = %d", "answer", 42);
    EXPECT_EQ(output.text(), "\nanswer = 42\n");
    EXPECT_EQ(output.writes(), 3);
}

TEST(Diagnostics, beginWithTheTextOfTheLastError)
{
    test::DebugOutput output;
    SetLastError(ERROR_FILE_NOT_FOUND);
    reportLastError("No \"%s\".", "camBack");
    const std::string withCode = output.take();
    char system[200] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        ERROR_FILE_NOT_FOUND, 0, system, sizeof system, nullptr);
    ASSERT_NE(system[0], '\0');
    EXPECT_EQ(withCode, "\n" + std::string(system) + "No \"camBack\".\n");

    SetLastError(ERROR_FILE_NOT_FOUND);
    reportLastError(nullptr);
    EXPECT_EQ(output.take(), "\n" + std::string(system) + "\n");

    SetLastError(0);
    reportLastError("100%% %s", "plain: %d %n"); // the message is no format any more
    EXPECT_EQ(output.take(), "\n100% plain: %d %n\n");
}

TEST(Diagnostics, cutTextsThatAreTooLong)
{
    test::DebugOutput output;
    const std::string text(5000, 'x');
    debugPrint("%s", text.c_str());
    EXPECT_EQ(output.take(), "\n" + text.substr(0, 799) + "\n");
    SetLastError(ERROR_ACCESS_DENIED);
    reportLastError("%s", text.c_str());
    EXPECT_EQ(output.take().size(), 801u);
    SetLastError(0);
}

} // namespace
} // namespace kez
