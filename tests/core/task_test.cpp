// SPDX-License-Identifier: MIT
#include "core/task.h"

#include "core/clock.h"
#include "support/slots.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace kez {
namespace {

std::string trace;

/// Writes its letter whenever it runs, does what the test asks, and sleeps if it has a time to.
class Worker : public Task {
public:
    explicit Worker(char ownLetter, std::uint32_t ownPause = 0)
        : letter(ownLetter)
        , pause(ownPause)
    {
        attach();
    }

    TaskBody run() override
    {
        const Guard guard;
        for (int round = 0;; ++round) {
            trace += letter;
            trace += static_cast<char>('0' + round);
            if (action)
                action();
            if (pause == 0)
                co_return;
            co_await sleep(pause);
        }
    }

    struct Guard { // the body's local objects

        Guard() { ++alive; }

        ~Guard() { --alive; }

        static inline int alive = 0;
    };

    char letter;
    std::uint32_t pause;
    std::function<void()> action;
};

class TaskTest : public testing::Test {
protected:
    TaskTest() { trace.clear(); }

    ~TaskTest() override { frameTime = 0; }

    static std::string runAt(std::uint32_t time)
    {
        frameTime = time;
        trace.clear();
        runDueTasks();
        return trace;
    }
};

TEST_F(TaskTest, sleepsAndGoesOnWhereItWas)
{
    Worker a('a', 40);
    EXPECT_EQ(a.wakeTime(), 0u);
    EXPECT_EQ(runAt(0), ""); // due only later than its wake time
    EXPECT_EQ(runAt(1000), "a0");
    EXPECT_EQ(a.wakeTime(), 1040u);
    EXPECT_TRUE(a.resumable());
    EXPECT_EQ(runAt(1040), "");
    EXPECT_EQ(runAt(1041), "a1");
    EXPECT_EQ(runAt(5000), "a2"); // once a frame, however late
    EXPECT_EQ(runAt(5000), "");
}

TEST_F(TaskTest, restartDropsTheSleepingBody)
{
    Worker a('a', 40);
    runAt(100);
    runAt(200);
    EXPECT_EQ(Worker::Guard::alive, 1);
    a.restart();
    EXPECT_EQ(Worker::Guard::alive, 0);
    EXPECT_EQ(a.wakeTime(), 0u);
    EXPECT_EQ(runAt(201), "a0");
    EXPECT_EQ(runAt(300), "a1");
}

TEST_F(TaskTest, aBodyMayRestartItsOwnTask)
{
    Worker a('a', 40);
    a.action = [&] { a.restart(); };
    EXPECT_EQ(runAt(100), "a0");
    EXPECT_EQ(Worker::Guard::alive, 0); // ended at its sleep
    a.action = nullptr;
    EXPECT_EQ(runAt(101), "a0");
    EXPECT_EQ(runAt(200), "a1");
}

TEST_F(TaskTest, keepsItsPlaceWhileDetached)
{
    Worker a('a', 40);
    runAt(100);
    a.detach();
    EXPECT_EQ(runAt(500), "");
    a.attach();
    EXPECT_EQ(runAt(501), "a1");
}

TEST_F(TaskTest, isDestroyedWithItsSleepingBody)
{
    {
        Worker a('a', 40);
        runAt(100);
    }
    EXPECT_EQ(Worker::Guard::alive, 0);
    EXPECT_EQ(taskRegistry().count(), 0);
}

TEST_F(TaskTest, aTaskAttachedMeanwhileRunsInTheSameFrame)
{
    Worker a('a', 40);
    Worker b('b', 40);
    b.detach();
    a.action = [&] { b.attach(); };
    EXPECT_EQ(runAt(100), "a0b0");
}

TEST_F(TaskTest, aTaskThatLeavesMakesItsFollowerMissTheFrame)
{
    Worker a('a');
    Worker b('b');
    Worker c('c');
    Worker d('d');
    b.action = [&] { a.detach(); };
    EXPECT_EQ(runAt(100), "a0b0d0");
    EXPECT_EQ(runAt(100), "b0c0d0");
    c.action = [&] { c.detach(); };
    EXPECT_EQ(runAt(100), "b0c0");
    EXPECT_EQ(runAt(100), "b0d0");
}

TEST_F(TaskTest, aFrameInsideAFrameLeavesTheRunningBodyAlone)
{
    Worker a('a', 40);
    Worker b('b', 40);
    a.action = [] { runDueTasks(); };
    EXPECT_EQ(runAt(100), "a0b0");
}

TEST_F(TaskTest, wakesAcrossTheEndOfTheTimersRange)
{
    Worker a('a', 40);
    EXPECT_EQ(runAt(0xFFFFFFF0u), "a0");
    EXPECT_EQ(a.wakeTime(), 24u);
    EXPECT_EQ(runAt(24), "");
    EXPECT_EQ(runAt(25), "a1");
}

TEST(Slots, ofTask)
{
    EXPECT_EQ(test::slotOf(&Task::run), 11);
}

} // namespace
} // namespace kez
