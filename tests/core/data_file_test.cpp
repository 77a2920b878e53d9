// SPDX-License-Identifier: MIT
#include "core/data_file.h"

#include "core/object.h"
#include "platform/files.h"
#include "support/debug_output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace kez {
namespace {

using Direction = DataFile::Direction;

class DataFileTest : public testing::Test {
protected:
    DataFileTest()
    {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }

    ~DataFileTest() override { std::filesystem::remove_all(folder); }

    [[nodiscard]] std::string onDisk() const
    {
        const auto bytes = files::read(path);
        return bytes ? std::string(bytes->begin(), bytes->end()) : "(no file)";
    }

    void put(std::string_view text) const
    {
        ASSERT_TRUE(files::write(
            path, { reinterpret_cast<const std::uint8_t*>(text.data()), text.size() }));
    }

    const std::filesystem::path folder = std::filesystem::path(testing::TempDir())
        / testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::string path = (folder / "data").string();
};

TEST_F(DataFileTest, writesAndReadsAnObject)
{
    Object written;
    written.setName("Cat");
    {
        DataFile file(path.c_str(), Direction::Writing);
        written.serialize(file);
        std::int32_t word = -2;
        double number = 100.5;
        EXPECT_TRUE(file.transfer(word));
        EXPECT_TRUE(file.transfer(number));
    }
    const std::string number("\0\0\0\0\0\x20\x59\x40", 8);
    EXPECT_EQ(onDisk(), std::string("\3\0\0\0Cat\0\0\0\0\xFE\xFF\xFF\xFF", 15) + number);

    Object read;
    read.caption = "old";
    DataFile file(path.c_str(), Direction::Reading);
    read.serialize(file);
    std::int32_t word = 0;
    double value = 0;
    EXPECT_TRUE(file.transfer(word));
    EXPECT_TRUE(file.transfer(value));
    EXPECT_EQ(read.name(), "Cat");
    EXPECT_EQ(read.caption, "");
    EXPECT_EQ(word, -2);
    EXPECT_EQ(value, 100.5);
}

TEST_F(DataFileTest, aTextEndsAtItsFirstZeroByte)
{
    put(std::string_view("\6\0\0\0ab\0cdeX", 11));
    DataFile file(path.c_str(), Direction::Reading);
    String text;
    EXPECT_TRUE(file.transfer(text));
    EXPECT_EQ(text, "ab");
    char rest = 0;
    EXPECT_TRUE(file.transfer(&rest, 1));
    EXPECT_EQ(rest, 'X');
}

TEST_F(DataFileTest, refusesLengthsThatTheFileCannotHold)
{
    for (const std::string& bytes : { std::string("\5\0\0\0abc", 7),
             std::string("\xFF\xFF\xFF\xFF"
                         "abc"),
             std::string("\xFF\xFF\xFF\x7F"
                         "abc"),
             std::string("\1\0", 2), std::string() }) {
        put(bytes);
        DataFile file(path.c_str(), Direction::Reading);
        String text("kept");
        EXPECT_FALSE(file.transfer(text));
        EXPECT_EQ(text, "kept");
    }
}

TEST_F(DataFileTest, leavesNothingBehindAfterAFailedWrite)
{
    files::Fault fault({ .failWriteNumber = 1 });
    DataFile file(path.c_str(), Direction::Writing);
    char bytes[] = "12";
    EXPECT_TRUE(file.transfer(bytes, 1));
    EXPECT_FALSE(file.transfer(bytes, 1));
    EXPECT_FALSE(file.isOpen());
    EXPECT_FALSE(file.transfer(bytes, 1));
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(DataFileTest, aClosedFileFailsAndNothingAlwaysFits)
{
    DataFile file(path.c_str(), Direction::Reading); // there is none
    EXPECT_FALSE(file.isOpen());
    char byte = 'x';
    EXPECT_FALSE(file.transfer(&byte, 1));
    EXPECT_TRUE(file.transfer(&byte, 0));
    EXPECT_EQ(byte, 'x');
}

} // namespace
} // namespace kez
