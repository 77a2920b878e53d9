// SPDX-License-Identifier: MIT
#include "core/data_file.h"

#include "core/object.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace kez {
namespace {

using Direction = DataFile::Direction;

class DataFileTest : public testing::Test {
protected:
    const test::TemporaryFolder folder;
    const std::string path = folder / "data";
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
    EXPECT_EQ(folder.get("data"), std::string("\3\0\0\0Cat\0\0\0\0\xFE\xFF\xFF\xFF", 15) + number);

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
    folder.put("data", std::string("\6\0\0\0ab\0cdeX", 11));
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
        folder.put("data", bytes);
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
    EXPECT_TRUE(folder.names().empty());
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
