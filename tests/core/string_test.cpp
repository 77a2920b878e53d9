// SPDX-License-Identifier: MIT
#include "core/string.h"

#include "support/debug_output.h"

#include <gtest/gtest.h>

#include <string>

namespace kez {
namespace {

TEST(String, isEmptyAndUnallocatedWhenBuilt)
{
    String text;
    EXPECT_EQ(text.length(), 0);
    EXPECT_EQ(text.maximum(), 0);
    EXPECT_STREQ(text.c_str(), "");
    text.cut(2);
    text.cut(-2);
    text.replace('a', 'b');
    EXPECT_EQ(text.at(0), '\0');
    EXPECT_EQ(text.count('a'), 0);
    EXPECT_TRUE(text.isBlank());
    EXPECT_FALSE(text.isNumber());
    EXPECT_TRUE(String(static_cast<const char*>(nullptr)).empty());
}

TEST(String, growsToExactlyWhatItNeeds)
{
    String text("abc");
    EXPECT_EQ(text.maximum(), 4);
    text.append("defg");
    EXPECT_EQ(text, "abcdefg");
    EXPECT_EQ(text.maximum(), 8);
    text = String("x");
    text.append("yz");
    EXPECT_EQ(text, "xyz");
    text.reserve(20, true);
    EXPECT_EQ(text.maximum(), 21);
    EXPECT_EQ(text, "xyz");
    text.reserve(5, false); // large enough: nothing happens
    EXPECT_EQ(text, "xyz");
    text.reserve(30, false);
    EXPECT_EQ(text, "");
}

TEST(String, assignsPartsOfATextAndOfItself)
{
    String text("photograph");
    EXPECT_EQ(String().assign("photograph", 2, 3), "oto");
    EXPECT_EQ(String().assign("photograph", 5, 0), "graph");
    EXPECT_EQ(String().assign("photograph", 8, 99), "ph");
    EXPECT_EQ(String("old").assign("photograph", 10), "");
    EXPECT_EQ(text.assign(text.view(), 5), "graph");
    EXPECT_EQ(text.append(text.view()), "graphgraph");
    EXPECT_EQ(text.append(text.view().substr(8)), "graphgraphph");
    const String& same = text;
    text = same;
    EXPECT_EQ(text, "graphgraphph");
}

TEST(String, setsResizesAndCuts)
{
    String text;
    text.setAt(3, 'x');
    EXPECT_EQ(text, "   x");
    text.setAt(0, 'y');
    text.setAt(-1, 'z');
    EXPECT_EQ(text, "y  x");
    text.resize(6);
    EXPECT_EQ(text, "y  x  ");
    text.cut(3);
    EXPECT_EQ(text, "y  ");
    text.cut(-1);
    EXPECT_EQ(text, "  ");
    EXPECT_TRUE(text.isBlank());
    text.cut(-99);
    EXPECT_EQ(text, "");
    text = String("abc");
    text.cut(99);
    EXPECT_EQ(text.length(), 0);
}

TEST(String, comparesFindsAndCounts)
{
    const String text("Photo~12.cam");
    EXPECT_GT(text.compare("PHOTO~12.cam"), 0);
    EXPECT_EQ(text.compareIgnoringCase("PHOTO~12.CAM"), 0);
    EXPECT_LT(text.compareIgnoringCase("photo~12.cams"), 0);
    EXPECT_NE(String("\xC4").compareIgnoringCase("\xE4"), 0); // only ASCII letters fold
    EXPECT_EQ(text.find('o'), 2);
    EXPECT_EQ(text.find('o', 3), 4);
    EXPECT_EQ(text.find('o', 5), -1);
    EXPECT_EQ(text.findLast('o'), 4);
    EXPECT_EQ(text.count('o'), 2);
    EXPECT_EQ(text.at(5), '~');
    EXPECT_EQ(text.at(12), '\0');
    EXPECT_EQ(text.at(-1), '\0');
}

TEST(String, knowsNumbers)
{
    for (const char* number : { "0", "-12", "+7", "007" })
        EXPECT_TRUE(String(number).isNumber()) << number;
    for (const char* other : { "", "-", "1 ", "1.5", "x1" })
        EXPECT_FALSE(String(other).isNumber()) << other;
    String text;
    EXPECT_EQ(text.setNumber(-42), "-42");
    EXPECT_EQ(text.setNumberPadded(7), "007");
    EXPECT_EQ(text.setNumberPadded(1234), "1234");
}

TEST(String, formatsUpTo799Characters)
{
    String text("Emma");
    text.format("%s's %d", text.c_str(), 3); // its own text as an argument
    EXPECT_EQ(text, "Emma's 3");
    EXPECT_GE(text.maximum(), 800);
    const std::string longText(2000, 'x');
    text.format("%s", longText.c_str());
    EXPECT_EQ(text.length(), 799);
    EXPECT_EQ(std::string(text.c_str()), longText.substr(0, 799));
}

TEST(String, dumpsItsSizesAndText)
{
    test::DebugOutput output;
    String("cat").dump();
    EXPECT_EQ(output.text(), "\nlength=3 maximum=4\n\ncat\n");
}

} // namespace
} // namespace kez
