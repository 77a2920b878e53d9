// SPDX-License-Identifier: MIT
#include "player/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace kez::player {

namespace {

using testing::HasSubstr;

struct Answer {
    Usage usage;
    std::string out;
    std::string err;
};

Answer answer(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "kez-player");
    Options defaults;
    defaults.data = "home";
    std::ostringstream out;
    std::ostringstream err;
    const Usage usage
        = readOptions(static_cast<int>(arguments.size()), arguments.data(), defaults, out, err);
    return { usage, out.str(), err.str() };
}

TEST(Options, takeEverythingThatIsAsked)
{
    const Answer full = answer({ "--module", "book", "--data", "d", "--camera", "folder:a b",
        "--depth", "16", "--disk-budget", "0", "--no-song", "--no-intro", "--fullscreen",
        "--verbose", "--headless", "--visit", "v.visit", "--handed-back", "h.png", "--content", "c",
        "--pictures", "p", "--doctor" });
    ASSERT_TRUE(full.usage.start) << full.err;
    const Options& options = full.usage.options;
    EXPECT_EQ(options.activity, Activity::Book);
    EXPECT_EQ(options.data, "d");
    EXPECT_EQ(options.camera, "folder:a b");
    EXPECT_EQ(options.depth, 16);
    EXPECT_EQ(options.diskBudget, 0);
    EXPECT_FALSE(options.song);
    EXPECT_FALSE(options.intro);
    EXPECT_TRUE(options.fullScreen);
    EXPECT_TRUE(options.verbose);
    EXPECT_TRUE(options.headless);
    EXPECT_EQ(options.visit, "v.visit");
    EXPECT_EQ(options.handedBack, "h.png");
    EXPECT_EQ(options.content, "c");
    EXPECT_EQ(options.pictures, "p");
    EXPECT_TRUE(options.doctor);
    EXPECT_EQ(answer({ "--no-pictures" }).usage.options.pictures, "");
}

TEST(Options, refuseWhatIsOutOfRange)
{
    const std::vector<std::vector<const char*>> cases { { "--depth", "8" }, { "--depth", "x" },
        { "--disk-budget", "-1" }, { "--disk-budget", "2147483648" }, { "--module", "album" },
        { "--camera", "webcam" }, { "--camera", "folder:" }, { "--data" }, { "stray" },
        { "--pictures", "p", "--no-pictures" }, { "--unknown" }, { "--headless" } };
    for (const auto& arguments : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Answer refused = answer(arguments);
        EXPECT_FALSE(refused.usage.start);
        EXPECT_EQ(refused.usage.exitCode, ExitCode::BadUsage);
        EXPECT_THAT(refused.err, HasSubstr(arguments[0]));
        EXPECT_THAT(refused.err, HasSubstr("--help"));
    }
    EXPECT_EQ(answer({ "--disk-budget", "2147483647" }).usage.options.diskBudget, 2147483647);
}

TEST(Options, answerHelpAndVersionWithoutStarting)
{
    const Answer help = answer({ "--help" });
    EXPECT_FALSE(help.usage.start);
    EXPECT_EQ(help.usage.exitCode, ExitCode::Fine);
    for (const char* option : { "--module", "--data", "--camera", "--depth", "--disk-budget",
             "--no-song", "--no-intro", "--fullscreen", "--verbose", "--version", "--visit",
             "--headless", "--content", "--handed-back" })
        EXPECT_THAT(help.out, HasSubstr(option));
    const Answer version = answer({ "--version" });
    EXPECT_EQ(version.usage.exitCode, ExitCode::Fine);
    EXPECT_EQ(version.out, "kez-player " KEZ_VERSION "\n");
}

} // namespace
} // namespace kez::player
