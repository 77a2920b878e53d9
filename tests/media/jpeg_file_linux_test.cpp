// SPDX-License-Identifier: MIT
// What can stand in the place of a file only here: a link to nothing, and a pipe that nobody
// writes.
#include "media/jpeg_file.h"
#include "platform/temporary_folder.h"
#include "support/debug_output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <sys/stat.h>

using namespace kez;
using namespace kez::test;

TEST(JpegFilesOfLinux, areRefusedWhenTheyAreNoFiles)
{
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder / "link.jpg");
    ASSERT_EQ(::mkfifo((folder / "pipe.jpg").c_str(), 0600), 0);
    for (const char* name : { "link.jpg", "pipe.jpg" }) {
        DebugOutput output;
        int width = 0;
        int height = 0;
        EXPECT_EQ(readJpeg((folder / name).c_str(), &width, &height), nullptr) << name;
        EXPECT_NE(output.text().find(name), std::string::npos) << output.text();
    }
}
