// SPDX-License-Identifier: MIT
#include "display/stage.h"

#include "control_kernel.h"
#include "core/clock.h"
#include "core/flags.h"
#include "display/scene.h"
#include "display/view.h"
#include "support/debug_output.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace kez {
namespace {

std::string trace;

class SpyScene : public Scene {
public:
    TaskBody run() override
    {
        trace += "run ";
        co_await sleep(40);
    }

    void enter() override
    {
        trace += "enter ";
        attach();
    }

    void leave() override { detach(); }
};

class SpyView : public View {
public:
    SpyView()
        : View(0, 0, 0, 0, 0, true, true)
    {
        attach();
    }

    void draw() override { trace += "draw "; }
};

class StageTest : public testing::Test {
protected:
    StageTest()
    {
        winapi::useScriptClock(5000);
        trace.clear();
        frameTime = 0;
        framesPerSecond = 0;
    }

    ~StageTest() override
    {
        endScene();
        winapi::useRealClock();
        suspended = false;
        frameTime = 0;
    }

    SpyScene scene;
};

TEST_F(StageTest, aFrameSwitchesRunsAndDraws)
{
    const SpyView view;
    switchTo(scene);
    stage().frame();
    EXPECT_EQ(trace, "enter run draw ");
    EXPECT_EQ(frameTime, 5000u);
    trace.clear();
    Sleep(40);
    stage().frame(); // due only later than its wake time
    EXPECT_EQ(trace, "draw ");
}

TEST_F(StageTest, measuresTheRateBetweenFrames)
{
    stage().frame();
    framesPerSecond = 7;
    stage().frame();
    EXPECT_EQ(framesPerSecond, 7u); // the same millisecond
    Sleep(50);
    stage().frame();
    EXPECT_EQ(framesPerSecond, 20u);
    Sleep(3);
    stage().frame();
    EXPECT_EQ(framesPerSecond, 333u);
    Sleep(1001);
    stage().frame();
    EXPECT_EQ(framesPerSecond, 0u);
}

TEST_F(StageTest, doesNothingWhileSuspended)
{
    const SpyView view;
    switchTo(scene);
    suspended = true;
    stage().frame();
    EXPECT_EQ(trace, "");
    EXPECT_EQ(frameTime, 0u);
    suspended = false;
    stage().frame();
    EXPECT_EQ(trace, "enter run draw ");
}

TEST_F(StageTest, thereIsOnlyOne)
{
    class Second : public Stage { };

    Stage& first = stage();
    test::DebugOutput output;
    {
        const Second second;
        EXPECT_NE(output.text().find("!_instance"), std::string::npos);
        EXPECT_EQ(&stage(), &first);
    }
    EXPECT_EQ(&stage(), &first);
}

} // namespace
} // namespace kez
