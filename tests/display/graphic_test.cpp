// SPDX-License-Identifier: MIT
#include "display/graphic.h"

#include "core/data_file.h"
#include "core/flags.h"
#include "display/view.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>

namespace kez {
namespace {

class Shape : public Graphic {
public:
    explicit Shape(const Placement& placement)
        : Graphic(placement, true, black)
    {
    }

    Shape(const Shape&) = default;

    void changed() override
    {
        ++changes;
        Graphic::changed();
    }

    int changes = 0;
};

Shape sized(int width, int height)
{
    return Shape({ .width = width, .height = height });
}

TEST(Graphic, edgesIncludeRightAndBottomInTheHit)
{
    Shape shape({ .x = 10, .y = -4, .width = 5, .height = 4 });
    EXPECT_EQ(shape.left(), 8);
    EXPECT_EQ(shape.right(), 13);
    EXPECT_EQ(shape.top(), -6);
    EXPECT_EQ(shape.bottom(), -2);
    EXPECT_TRUE(shape.hitTest(13, -2));
    EXPECT_TRUE(shape.hitTest(8, -6));
    EXPECT_FALSE(shape.hitTest(14, -2));
    EXPECT_FALSE(shape.hitTest(7, -6));
}

TEST(Graphic, edgesAreInStageCoordinates)
{
    View view(100, 50, 0, 0, 0, true, true);
    Shape shape({ .x = 120, .y = 60, .width = 5, .height = 5 });
    view.add(shape);
    EXPECT_EQ(shape.x, 20);
    EXPECT_EQ(shape.left(), 118);
    EXPECT_TRUE(shape.hitTest(123, 63));
    EXPECT_FALSE(shape.hitTest(20, 10));
}

TEST(Graphic, hitRectangleLiesDownWithTheObject)
{
    Shape shape = sized(10, 4);
    for (const int angle : { 90, 270 }) {
        shape.angle = angle;
        EXPECT_TRUE(shape.hitTest(2, 5));
        EXPECT_FALSE(shape.hitTest(5, 0));
    }
    shape.angle = 180;
    EXPECT_TRUE(shape.hitTest(5, 0));
    EXPECT_FALSE(shape.hitTest(2, 5));
}

TEST(Graphic, hitModeAndVisibilityDecide)
{
    Shape shape = sized(10, 10);
    shape.visible = false;
    EXPECT_TRUE(shape.hitTest(0, 0));
    shape.setHitMode(-1, true);
    EXPECT_FALSE(shape.hitTest(0, 0));
    shape.visible = true;
    EXPECT_TRUE(shape.hitTest(0, 0));
    shape.setHitMode(0, false);
    EXPECT_FALSE(shape.hitTest(0, 0));
}

TEST(Graphic, scalesFromItsBaseSize)
{
    Shape shape = sized(101, 40);
    EXPECT_EQ(shape.setScale(50.0), 50.0);
    EXPECT_EQ(shape.width, 51); // 50.5 goes up
    EXPECT_EQ(shape.height, 20);
    EXPECT_EQ(shape.setScale(100.0), 100.0);
    EXPECT_EQ(shape.width, 101);
    EXPECT_EQ(shape.height, 40);
    EXPECT_EQ(shape.changes, 2);
    shape.fitInto(50, 40);
    EXPECT_EQ(shape.width, 50);
    EXPECT_EQ(shape.height, 20);
    shape.setScale(1e300);
    EXPECT_EQ(shape.width, std::numeric_limits<int>::max());

    Shape flat = sized(10, 0);
    flat.fitInto(50, 40);
    EXPECT_EQ(flat.width, 10);
}

TEST(Graphic, movesPartOfTheWayButAtLeastAPixel)
{
    struct Case {
        int from, to;
        double percent;
        int reached, length;
    };

    for (const Case& c : { Case { 0, 5, 10, 1, 1 }, Case { 0, 100, 10, 10, 10 },
             Case { 0, -5, 10, -1, 1 }, Case { 7, 7, 10, 7, 0 }, Case { 0, 15, 10, 1, 1 },
             Case { -10, 5, 10, -8, 1 }, Case { 10, -5, 10, 8, 1 } }) {
        Shape shape({ .x = c.from });
        EXPECT_EQ(shape.moveToward(c.to, 0, c.percent), c.length);
        EXPECT_EQ(shape.x, c.reached) << c.from << " to " << c.to;
    }
    Shape shape({ .x = 0, .y = 0 });
    EXPECT_EQ(shape.moveToward(30, 40, 50), 25);
    EXPECT_EQ(shape.x, 15);
    EXPECT_EQ(shape.y, 20);
}

TEST(Graphic, isStoredInStageCoordinates)
{
    const auto path = (std::filesystem::path(testing::TempDir()) / "graphic.data").string();
    View view(100, 50, 0, 0, 0, true, true);
    Shape shape({ .x = 120, .y = 60, .depth = 3, .width = 7, .height = 9, .extra = -1 });
    shape.setName("apple");
    shape.colour = makeColour(1, 2, 3, 200);
    shape.index = 12;
    shape.angle = 90;
    shape.setScale(50);
    view.add(shape);
    {
        DataFile file(path.c_str(), DataFile::Direction::Writing);
        shape.serialize(file);
    }
    EXPECT_EQ(shape.x, 20);
    Shape read({});
    {
        DataFile file(path.c_str(), DataFile::Direction::Reading);
        read.serialize(file);
    }
    EXPECT_EQ(read.x, 120);
    EXPECT_EQ(read.y, 60);
    EXPECT_EQ(read.name(), "apple");
    EXPECT_EQ(read.width, 4);
    EXPECT_EQ(read.baseWidth, 7);
    EXPECT_EQ(read.scale, 50.0);
    EXPECT_EQ(read.colour, makeColour(1, 2, 3, 200));
    EXPECT_EQ(read.index, 12);
    EXPECT_EQ(read.angle, 90);
    EXPECT_EQ(read.extra, -1);
    std::filesystem::remove(path);
}

} // namespace
} // namespace kez
