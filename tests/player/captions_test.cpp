// SPDX-License-Identifier: MIT
#include "player/captions.h"

#include "platform/temporary_folder.h"

#include <gtest/gtest.h>

using namespace kez::player;
using kez::test::TemporaryFolder;

namespace {

constexpr DWORD start = 0xFFFFFFF0u; // The clock wraps round while a line is shown.

class CaptionsTest : public testing::Test {
protected:
    void read(const std::string& text)
    {
        folder.put("captions.txt", text);
        captions.read(folder / "captions.txt");
    }

    TemporaryFolder folder;
    Captions captions;
};

TEST_F(CaptionsTest, showALineWhileItIsSaid)
{
    read("\xEF\xBB\xBF"
         "1\tHello!\r\n5\tSave\tit.\n100\tHelp\n");
    EXPECT_EQ(captions.text(start), "");
    captions.say(1, 4000, start);
    EXPECT_EQ(captions.text(start + 4000), "Hello!");
    EXPECT_EQ(captions.text(start + 6000), "");
    captions.say(1, 4000, start);
    captions.say(5, 4000, start + 10);
    EXPECT_EQ(captions.text(start + 10), "Save\tit.");
    captions.say(99, 4000, start + 20); // without a line
    EXPECT_EQ(captions.text(start + 30), "");
    captions.say(100, 4000, start + 20);
    captions.say(0, 0, start + 40); // silenced
    EXPECT_EQ(captions.text(start + 40), "");
}

TEST_F(CaptionsTest, stayLongEnoughToReadWhatCannotBeHeard)
{
    const std::string line(100, 'a');
    read("7\t" + line + "\n");
    captions.say(7, 0, start);
    EXPECT_EQ(captions.text(start + 7900), line);
    EXPECT_EQ(captions.text(start + 20'000), "");
}

TEST_F(CaptionsTest, passOverWhatIsNoLine)
{
    read("no tab\nx\tno number\n3 \tspace\n\t\n4\tfour");
    captions.say(3, 1, start);
    EXPECT_EQ(captions.text(start), "");
    captions.say(4, 1, start);
    EXPECT_EQ(captions.text(start), "four");
    Captions none;
    none.read(folder / "missing.txt");
    EXPECT_TRUE(none.empty());
}

} // namespace
