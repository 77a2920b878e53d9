// SPDX-License-Identifier: MIT
#include "player/visit_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kez::player {

namespace {

using testing::ElementsAre;

// Writes down what a visit does; a pass takes ten milliseconds.
class Diary : public VisitHost {
public:
    std::vector<std::string> entries;
    int arrived = 0;
    bool running = true;
    bool obeys = true;
    DWORD time = 0xFFFFFF00; // The clock wraps round during the tests.

    void movePointer(int x, int y) override { note("to " + pair(x, y)); }

    void sendMessage(UINT message, WPARAM word, LPARAM detail) override
    {
        switch (message) {
        case WM_MOUSEMOVE:
            return note("move " + pair(LOWORD(detail), HIWORD(detail)));
        case WM_LBUTTONDOWN:
            return note("press " + pair(LOWORD(detail), HIWORD(detail)));
        case WM_LBUTTONUP:
            return note("let go");
        default:
            return note(std::to_string(message) + ":" + std::to_string(word));
        }
    }

    bool takePicture() override { return obeys; }

    bool setPlugged(bool) override { return obeys; }

    std::string cameraProblem() const override { return "it is asleep"; }

    bool keepShot(const std::string&) override { return obeys; }

    int picturesArrived() const override { return arrived; }

    bool runs() const override { return running; }

    DWORD now() const override { return time; }

    VisitState pass(VisitPlayer& visit)
    {
        const VisitState state = visit.pass();
        note("pass");
        time += 10;
        return state;
    }

private:
    void note(const std::string& entry) { entries.push_back(entry); }

    static std::string pair(int x, int y) { return std::to_string(x) + " " + std::to_string(y); }
};

std::vector<Step> parsed(const char* text)
{
    return std::get<std::vector<Step>>(parseVisit(text));
}

VisitState playOut(Diary& diary, VisitPlayer& visit, int passes)
{
    VisitState state = VisitState::GoesOn;
    for (int i = 0; i < passes && state == VisitState::GoesOn; ++i)
        state = diary.pass(visit);
    return state;
}

TEST(VisitPlayer, clicksWithAPassBetweenTheMessages)
{
    Diary diary;
    VisitPlayer visit(parsed("click 3 4\nquit"), diary);
    EXPECT_EQ(playOut(diary, visit, 9), VisitState::Ended);
    EXPECT_THAT(diary.entries,
        ElementsAre("to 3 4", "move 3 4", "pass", "press 3 4", "pass", "let go", "pass", "pass"));
}

TEST(VisitPlayer, typesACharacterAPass)
{
    Diary diary;
    VisitPlayer visit(parsed("type a!\nkey enter\nkey up"), diary);
    EXPECT_EQ(playOut(diary, visit, 9), VisitState::Ended);
    EXPECT_THAT(diary.entries,
        ElementsAre("256:65", "258:97", "257:65", "pass", "256:33", "258:33", "257:33", "pass",
            "256:13", "258:13", "257:13", "pass", "256:38", "257:38", "pass", "pass"));
}

TEST(VisitPlayer, waitsByTheClock)
{
    Diary diary;
    VisitPlayer visit(parsed("wait 500"), diary);
    EXPECT_EQ(playOut(diary, visit, 51), VisitState::GoesOn);
    EXPECT_EQ(playOut(diary, visit, 1), VisitState::Ended);
}

TEST(VisitPlayer, waitsForPicturesAMinuteAtMost)
{
    Diary diary;
    VisitPlayer visit(parsed("wait 0\nuntil pictures 2"), diary);
    EXPECT_EQ(playOut(diary, visit, 100), VisitState::GoesOn);
    diary.arrived = 1;
    EXPECT_EQ(playOut(diary, visit, 10'000), VisitState::Failed);
    EXPECT_EQ(diary.time - 0xFFFFFF00, 60'020u);
    EXPECT_EQ(visit.line(), 2);
    EXPECT_EQ(visit.complaint(), "waited a minute for 2 pictures, but so many have come: 1");
}

TEST(VisitPlayer, goesOnWhenTheActivityEnds)
{
    Diary diary;
    VisitPlayer visit(parsed("until exit"), diary);
    EXPECT_EQ(playOut(diary, visit, 100), VisitState::GoesOn);
    diary.running = false;
    EXPECT_EQ(playOut(diary, visit, 2), VisitState::Ended);
}

TEST(VisitPlayer, failsAtTheStepThatCannotBeDone)
{
    for (const char* step : { "take", "plug", "unplug", "shot a.png" }) {
        Diary diary;
        diary.obeys = false;
        VisitPlayer visit(parsed((std::string("\n") + step + "\nquit").c_str()), diary);
        EXPECT_EQ(playOut(diary, visit, 9), VisitState::Failed) << step;
        EXPECT_EQ(visit.line(), 2) << step;
        EXPECT_NE(visit.complaint(), "") << step;
    }
}

} // namespace
} // namespace kez::player
