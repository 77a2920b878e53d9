// SPDX-License-Identifier: MIT
#include "activity/thumbnail_grid.h"

#include "activity/activity_screen.h"
#include "input/events.h"

#include <gtest/gtest.h>

#include <vector>

using namespace kez;

namespace {

using Click = ThumbnailGrid::Click;

struct Report {
    Click click;
    int selected;

    friend bool operator==(const Report&, const Report&) = default;
};

class Listener : public Actor {
public:
    void serviceFired(Service& service) override
    {
        auto& grid = static_cast<ThumbnailGrid&>(service);
        reports.push_back({ grid.click(), grid.selectedIndex() });
        if (deselects)
            grid.deselect();
    }

    std::vector<Report> reports;
    bool deselects = false;
};

class Grid : public testing::Test {
protected:
    void SetUp() override
    {
        constexpr StagePoint positions[] = { { -100, 0 }, { 0, 0 }, { 100, 0 } };
        grid.setClient(&listener);
        grid.setup(60, 44, positions, { makeColour(255, 0, 0), -3 }, { black, -2 });
        grid.enter();
        other.layer(0).addToLayer(elsewhere);
        other.attach();
    }

    void TearDown() override
    {
        helpMode = false;
        grid.leave();
    }

    static void press(int x, int y = 0) { mouseEvent(x, y, MouseEvent::Press); }

    Listener listener;
    ThumbnailGrid grid;
    View other { 0, 0, 50, 0, 0, true, true };
    kez::Rectangle elsewhere { Placement { 0, 200, 0, 600, 40 }, true, black, 0 };
};

TEST_F(Grid, selectsTheCellThatIsClicked)
{
    press(105);
    EXPECT_EQ(listener.reports, (std::vector<Report> { { Click::Cell, 2 } }));
    press(-100);
    EXPECT_EQ(grid.selectedIndex(), 0);
    press(-100); // the frame lies in front now
    EXPECT_EQ(listener.reports.back(), (Report { Click::SelectedCell, 0 }));
    press(0, 200);
    EXPECT_EQ(listener.reports.back(), (Report { Click::Elsewhere, 0 }));
    press(0, -200); // nothing there
    EXPECT_EQ(listener.reports.size(), 4u);
}

TEST_F(Grid, onlyAsksInHelpMode)
{
    grid.select(0);
    helpMode = true;
    listener.deselects = true;
    press(100);
    EXPECT_EQ(listener.reports, (std::vector<Report> { { Click::Help, 2 } }));
    EXPECT_EQ(grid.selectedIndex(), 0);
    press(0, 200);
    EXPECT_EQ(listener.reports.size(), 1u);
    press(-100);
    EXPECT_EQ(listener.reports.back(), (Report { Click::Help, -1 })); // the frame
    helpMode = false;
    listener.deselects = false;
    press(-100);
    EXPECT_EQ(listener.reports.back(), (Report { Click::SelectedCell, 0 }));
}

TEST_F(Grid, forgetsItsSelectionWhenHidden)
{
    grid.select(1);
    grid.leave();
    EXPECT_EQ(grid.selectedIndex(), -1);
    press(0);
    EXPECT_TRUE(listener.reports.empty());
    grid.enter();
    grid.select(3);
    EXPECT_EQ(grid.selectedIndex(), -1);
    press(0);
    EXPECT_EQ(listener.reports.back(), (Report { Click::Cell, 1 }));
}

} // namespace
