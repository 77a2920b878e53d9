// SPDX-License-Identifier: MIT
#include "media/targa_file.h"

#include "core/flags.h"
#include "media/targa_bytes.h"
#include "platform/temporary_folder.h"
#include "support/debug_output.h"

#include <gtest/gtest.h>

using namespace kez;
using namespace kez::test;

namespace {

class TargaFiles : public testing::Test {
protected:
    TargaFiles() { diskUsed = 0; }

    ~TargaFiles() override { diskUsed = 0; }

    // 47 × 33, runs and literals, every row different.
    static Bytes picture()
    {
        Bytes pixels;
        for (int i = 0; i < width * height; ++i)
            for (int channel = 0; channel < 3; ++channel)
                pixels.push_back(static_cast<std::uint8_t>(i % 7 < 3 ? i / 47 : i * (channel + 3)));
        return pixels;
    }

    static constexpr int width = 47;
    static constexpr int height = 33;
    TemporaryFolder folder;
};

TEST_F(TargaFiles, readsBackWhatItWroteAndCountsTheBytes)
{
    const Bytes pixels = picture();
    const std::string path = folder / "a.cam";
    std::int32_t sizeBefore = 0;
    for (const bool runLength : { false, true }) {
        SCOPED_TRACE(runLength);
        TargaFile writer(path.c_str());
        ASSERT_NE(writer.write(path.c_str(), runLength, width, height, pixels.data()), nullptr);
        const auto size = static_cast<std::int32_t>(folder.get("a.cam").size());
        EXPECT_EQ(diskUsed, size) << "the size before was " << sizeBefore;
        sizeBefore = size;

        TargaFile reader(path.c_str());
        int readWidth = 0;
        int readHeight = 0;
        const std::uint8_t* read = reader.read(&readWidth, &readHeight);
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(readWidth, width);
        EXPECT_EQ(readHeight, height);
        EXPECT_EQ(Bytes(read, read + pixels.size()), pixels);
    }
}

TEST_F(TargaFiles, writesTheseBytes)
{
    const Bytes pixels { 1, 2, 3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 7, 8, 9, 7, 8, 9 };
    TargaFile file(nullptr);
    const Bytes head { 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 0, 2, 0, 24, 0 };
    ASSERT_NE(file.write((folder / "plain.cam").c_str(), false, 3, 2, pixels.data()), nullptr);
    EXPECT_EQ(folder.get("plain.cam"), asText(head) + asText(pixels));
    Bytes packed = head;
    packed[2] = 10;
    const Bytes packets { 0x81, 1, 2, 3, 0, 4, 5, 6, 0x82, 7, 8, 9 };
    packed.insert(packed.end(), packets.begin(), packets.end());
    ASSERT_NE(file.write((folder / "packed.cam").c_str(), true, 3, 2, pixels.data()), nullptr);
    EXPECT_EQ(folder.get("packed.cam"), asText(packed));
}

TEST_F(TargaFiles, namesTheFileInItsMessage)
{
    const std::string missing = folder / "none.cam";
    TargaFile file(missing.c_str());
    DebugOutput log;
    EXPECT_EQ(file.read(nullptr, nullptr), nullptr);
    EXPECT_EQ(file.lastMessage(), ("File \"" + missing + "\": Could not open file").c_str());
    EXPECT_EQ(log.text(), file.lastMessage().c_str());
    EXPECT_EQ(file.write(missing.c_str(), true, 1, 1, nullptr), nullptr);
    EXPECT_EQ(file.lastMessage(), ("File \"" + missing + "\": No image available").c_str());
}

TEST_F(TargaFiles, storesTheSizesAlsoWhenItRefuses)
{
    folder.put("bad.cam",
        asText(TargaBytesOf { { .imageType = 2, .width = 5, .height = 6, .depth = 12 } }.file()));
    int readWidth = -1;
    int readHeight = -1;
    TargaFile bad((folder / "bad.cam").c_str());
    EXPECT_EQ(bad.read(&readWidth, &readHeight), nullptr);
    EXPECT_EQ(readWidth, 5);
    EXPECT_EQ(readHeight, 6);
    folder.put("flat.cam",
        asText(TargaBytesOf { { .imageType = 2, .width = 7, .height = 0, .depth = 24 } }.file()));
    TargaFile flat((folder / "flat.cam").c_str());
    EXPECT_EQ(flat.read(&readWidth, &readHeight), nullptr);
    EXPECT_EQ(readWidth, 7);
    EXPECT_EQ(readHeight, 6);
}

TEST_F(TargaFiles, leavesTheOldFileWhenWritingFails)
{
    const Bytes pixels = picture();
    const std::string path = folder / "a.cam";
    folder.put("a.cam", "old");
    TargaFile file(nullptr);
    DebugOutput log;
    const files::Fault::Plan plans[] = { { .failWriteNumber = 0 }, { .failWriteNumber = 1 },
        { .failCommitNumber = 0 }, { .roomBytes = 100 } };
    for (const files::Fault::Plan& plan : plans) {
        files::Fault fault(plan);
        EXPECT_EQ(file.write(path.c_str(), true, width, height, pixels.data()), nullptr);
    }
    EXPECT_EQ(folder.get("a.cam"), "old");
    EXPECT_EQ(diskUsed, 0);
    EXPECT_NE(log.text().find(path), std::string::npos);
    EXPECT_EQ(file.write((folder / "no/such/a.cam").c_str(), true, 1, 1, pixels.data()), nullptr);
    EXPECT_NE(file.lastMessage().view().find("Could not create file"), std::string_view::npos);
    EXPECT_EQ(file.write(path.c_str(), true, 65536, 1, pixels.data()), nullptr);
    EXPECT_EQ(file.write(path.c_str(), true, 1, 0, pixels.data()), nullptr);
}

} // namespace
