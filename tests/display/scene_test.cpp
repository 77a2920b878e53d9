// SPDX-License-Identifier: MIT
#include "display/scene.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace kez {
namespace {

std::string trace;

class SpyScene : public Scene {
public:
    explicit SpyScene(std::string ownName)
        : label(std::move(ownName))
    {
    }

    void onCreate() override { note(":onCreate "); }

    void create() override { note(":create "); }

    void onEnter() override { note(":onEnter "); }

    void enter() override
    {
        note(":enter ");
        if (entering)
            entering();
    }

    void leave() override { note(":leave "); }

    void onLeave() override { note(":onLeave "); }

    void note(const char* what) const { trace += label + what; }

    std::string label;
    std::function<void()> entering;
};

class SceneTest : public testing::Test {
protected:
    SceneTest() { trace.clear(); }

    ~SceneTest() override
    {
        performSwitch();
        endScene();
    }

    static std::string switched()
    {
        trace.clear();
        performSwitch();
        return trace;
    }

    SpyScene a { "a" };
    SpyScene b { "b" };
    SpyScene c { "c" };
};

TEST_F(SceneTest, isCreatedOnceAndEnteredEveryTime)
{
    switchTo(a);
    EXPECT_EQ(currentScene(), nullptr);
    EXPECT_EQ(pendingScene(), &a);
    EXPECT_EQ(switched(), "a:onCreate a:create a:onEnter a:enter ");
    EXPECT_EQ(currentScene(), &a);
    EXPECT_EQ(pendingScene(), nullptr);
    switchTo(b);
    EXPECT_EQ(switched(), "a:leave a:onLeave b:onCreate b:create b:onEnter b:enter ");
    switchTo(a);
    EXPECT_EQ(switched(), "b:leave b:onLeave a:onEnter a:enter ");
    EXPECT_EQ(a.entries(), 2);
    EXPECT_EQ(switched(), "");
}

TEST_F(SceneTest, theLaterOfTwoRequestsCounts)
{
    switchTo(a);
    switchTo(b);
    performSwitch();
    EXPECT_EQ(currentScene(), &b);
    EXPECT_EQ(a.entries(), 0);
    switchTo(c);
    switchTo(b); // current: ignored, and c stays asked for
    EXPECT_EQ(pendingScene(), &c);
}

TEST_F(SceneTest, aSceneMayAskForAnotherWhileItIsEntered)
{
    a.entering = [this] { switchTo(b); };
    switchTo(a);
    performSwitch();
    EXPECT_EQ(currentScene(), &a);
    EXPECT_EQ(pendingScene(), &b);
    performSwitch();
    EXPECT_EQ(currentScene(), &b);
}

TEST_F(SceneTest, aSwitchEndsTheDispatchUnderWay)
{
    dispatching = true;
    performSwitch();
    EXPECT_TRUE(dispatching);
    switchTo(a);
    performSwitch();
    EXPECT_FALSE(dispatching);
}

TEST_F(SceneTest, endsWithoutASuccessor)
{
    endScene();
    switchTo(a);
    performSwitch();
    trace.clear();
    endScene();
    endScene();
    EXPECT_EQ(trace, "a:leave a:onLeave ");
    EXPECT_EQ(currentScene(), nullptr);
}

} // namespace
} // namespace kez
