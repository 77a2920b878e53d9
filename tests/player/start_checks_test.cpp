// SPDX-License-Identifier: MIT
#include "player/start_checks.h"

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"
#include "player/places.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace kez::player {

namespace {

using test::TemporaryFolder;

TEST(StartChecks, removeOnlyWhatWasLeftHalfWrittenLongAgo)
{
    const TemporaryFolder home;
    std::filesystem::create_directory(home / "photo");
    const auto yesterday = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
    for (const char* name : { "Zoo.cam", "Zoo.cam.~new0", "new.~new", "Zoo.cam.~new1" }) {
        home.put(std::string("photo/") + name, "bytes");
        std::filesystem::last_write_time(home / ("photo/" + std::string(name)), yesterday);
    }
    home.put("photo/Cat.cam.~new0", "being written");
    removeUnfinished(home.path());
    std::size_t left = 0;
    for (const auto& file : std::filesystem::directory_iterator(home / "photo"))
        left += file.exists() ? 1 : 0;
    EXPECT_EQ(left, 3u);
    EXPECT_EQ(home.get("photo/Zoo.cam"), "bytes");
    EXPECT_EQ(home.get("photo/Cat.cam.~new0"), "being written");
    removeUnfinished(home / "nowhere");
}

// The letter is one byte in a code page of Windows, and some byte on Linux.
TEST(StartChecks, takeAPlaceWhoseNameIsNotAscii)
{
    const TemporaryFolder home;
    Options options;
    options.data = home / "J\x80rgen";
    const std::string data = placesFor(options).data;
    EXPECT_TRUE(data.ends_with("J\x80rgen"));
    EXPECT_EQ(dataNote(data), "");
    EXPECT_TRUE(files::isDirectory(options.data));
}

TEST(StartChecks, letOnePlayerAtATimeHaveTheStore)
{
    const TemporaryFolder home;
    {
        const desktop::Claim first(home.path());
        EXPECT_FALSE(first.isRefused());
        EXPECT_TRUE(desktop::Claim(home.path()).isRefused());
        EXPECT_FALSE(desktop::Claim(home / "nowhere").isRefused());
    }
    EXPECT_FALSE(desktop::Claim(home.path()).isRefused());
    EXPECT_TRUE(home.names().empty());
}

} // namespace
} // namespace kez::player
