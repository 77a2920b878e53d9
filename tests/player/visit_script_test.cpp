// SPDX-License-Identifier: MIT
#include "player/visit_script.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace kez::player {

namespace {

std::vector<Step> steps(std::string_view text)
{
    auto parsed = parseVisit(text);
    const auto* fault = std::get_if<VisitFault>(&parsed);
    EXPECT_EQ(fault, nullptr) << (fault == nullptr ? "" : fault->message);
    return fault == nullptr ? std::get<std::vector<Step>>(parsed) : std::vector<Step> {};
}

VisitFault fault(std::string_view text)
{
    auto parsed = parseVisit(text);
    const auto* found = std::get_if<VisitFault>(&parsed);
    return found == nullptr ? VisitFault { 0, "no fault" } : *found;
}

TEST(VisitScript, readsEveryStepWithItsLine)
{
    const auto all = steps("# a visit\n"
                           "wait 250\n"
                           "\n"
                           "  move 1 2   # over there\r\n"
                           "click 639 479\n"
                           "type Anna and Ben\n"
                           "take\nunplug\nplug\n"
                           "shot one.png\n"
                           "until pictures 20\n"
                           "until exit\n"
                           "quit");
    const std::vector<StepKind> kinds { StepKind::Wait, StepKind::Move, StepKind::Click,
        StepKind::Type, StepKind::Take, StepKind::Unplug, StepKind::Plug, StepKind::Shot,
        StepKind::UntilPictures, StepKind::UntilExit, StepKind::Quit };
    ASSERT_EQ(all.size(), kinds.size());
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(all[i].kind, kinds[i]) << i;
    EXPECT_EQ(all[0].number, 250);
    EXPECT_EQ(all[0].line, 2);
    EXPECT_EQ(all[1].x, 1);
    EXPECT_EQ(all[1].y, 2);
    EXPECT_EQ(all[1].line, 4);
    EXPECT_EQ(all[2].x, 639);
    EXPECT_EQ(all[3].text, "Anna and Ben");
    EXPECT_EQ(all[7].text, "one.png");
    EXPECT_EQ(all[8].number, 20);
    EXPECT_EQ(all[10].line, 13);
}

TEST(VisitScript, knowsKeysByName)
{
    const struct {
        const char* name;
        int code;
    } keys[] = { { "enter", VK_RETURN }, { "escape", VK_ESCAPE }, { "backspace", VK_BACK },
        { "left", VK_LEFT }, { "f1", VK_F1 }, { "f12", VK_F12 }, { "q", 'Q' }, { "Q", 'Q' },
        { "7", '7' }, { "f", 'F' } };

    for (const auto& key : keys) {
        const auto all = steps(std::string("key ") + key.name);
        ASSERT_EQ(all.size(), 1u) << key.name;
        EXPECT_EQ(all[0].number, key.code) << key.name;
    }
}

TEST(VisitScript, namesTheFirstLineThatIsNoStep)
{
    const struct {
        const char* text;
        const char* complaint;
    } faults[] = {
        { "jump", "\"jump\" is no step" },
        { "wait", "wait: expected milliseconds up to 600000, not \"\"" },
        { "wait 1s", "wait: expected milliseconds up to 600000, not \"1s\"" },
        { "wait 600001", "wait: expected milliseconds up to 600000, not \"600001\"" },
        { "move 640 0", "move: expected X Y within 640 x 480, not \"640 0\"" },
        { "move 0 480", "move: expected X Y within 640 x 480, not \"0 480\"" },
        { "click 5", "click: expected X Y within 640 x 480, not \"5\"" },
        { "click 1 2 3", "click: expected X Y within 640 x 480, not \"1 2 3\"" },
        { "click -1 2", "click: expected X Y within 640 x 480, not \"-1 2\"" },
        { "key f13", "key: \"f13\" is no key" },
        { "key", "key: \"\" is no key" },
        { "type", "type: expected text" },
        { "take two", "take: nothing may follow, not \"two\"" },
        { "shot picture.bmp", "shot: expected a file ending in .png" },
        { "until", "until: expected \"pictures N\" or \"exit\", not \"\"" },
        { "until pictures 21", "until: expected a number of pictures up to 20, not \"21\"" },
        { "until exit now", "until: nothing may follow, not \"now\"" },
    };

    for (const auto& row : faults) {
        const VisitFault found = fault(std::string("quit\n\n") + row.text + "\nalso wrong\n");
        EXPECT_EQ(found.message, row.complaint);
        EXPECT_EQ(found.line, 3) << row.text;
    }
}

TEST(VisitScript, takesAnEmptyFileForAnEmptyVisit)
{
    EXPECT_TRUE(steps("").empty());
    EXPECT_TRUE(steps("\n# nothing\n\t\n").empty());
}

} // namespace
} // namespace kez::player
