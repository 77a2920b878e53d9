// SPDX-License-Identifier: MIT
#include "control_kernel.h"
#include "platform/desktop.h"

#include <windows.h>

#include <mmsystem.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace kez {
namespace {

class ScriptClock : public testing::Test {
protected:
    void SetUp() override { desktop::useScriptClock(1000); }

    void TearDown() override { winapi::useRealClock(); }
};

// Not guarded by any lock: that only one thread runs at a time is what is tested.
struct Log {
    std::string text;

    void add(char who) { text += who + std::to_string(timeGetTime() - 1000) + ' '; }
};

struct Sleeper {
    Log* log;
    char name;
    DWORD pause;
    int times;
};

DWORD WINAPI sleepRepeatedly(LPVOID passed)
{
    const Sleeper& sleeper = *static_cast<Sleeper*>(passed);
    for (int i = 0; i < sleeper.times; ++i) {
        Sleep(sleeper.pause);
        sleeper.log->add(sleeper.name);
    }
    return 0;
}

void finish(HANDLE thread)
{
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    CloseHandle(thread);
}

std::string runThreeSleepers()
{
    Log log;
    Sleeper sleepers[] = { { &log, 'a', 10, 3 }, { &log, 'b', 15, 2 }, { &log, 'c', 30, 1 } };
    std::vector<HANDLE> threads;
    for (Sleeper& sleeper : sleepers)
        threads.push_back(CreateThread(nullptr, 0, sleepRepeatedly, &sleeper, 0, nullptr));
    log.add('m');
    Sleep(15);
    log.add('m');
    for (const HANDLE thread : threads)
        finish(thread);
    log.add('m');
    return log.text;
}

TEST_F(ScriptClock, threadsTakeTurnsTheSameWayEveryTime)
{
    for (int i = 0; i < 2000; ++i) {
        desktop::useScriptClock(1000);
        // At 15 the main thread lined up first, at 30 the thread c.
        ASSERT_EQ(runThreeSleepers(), "m0 a10 m15 b15 a20 c30 b30 a30 m30 ") << i;
    }
}

TEST_F(ScriptClock, aWaitEndsAtItsTimeOrWithTheThread)
{
    Log log;
    Sleeper sleeper { &log, 'a', 50, 2 };
    const HANDLE thread = CreateThread(nullptr, 0, sleepRepeatedly, &sleeper, 0, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(thread, 70), WAIT_TIMEOUT);
    EXPECT_EQ(timeGetTime(), 1070u);
    EXPECT_EQ(WaitForSingleObject(thread, 70), WAIT_OBJECT_0);
    EXPECT_EQ(timeGetTime(), 1100u);
    CloseHandle(thread);
}

DWORD WINAPI endAtOnce(LPVOID)
{
    return 0;
}

TEST_F(ScriptClock, threadsThatEndDoNotStopTime)
{
    for (int i = 0; i < 3000; ++i) {
        CloseHandle(CreateThread(nullptr, 0, endAtOnce, nullptr, 0, nullptr));
        Sleep(7);
    }
    EXPECT_EQ(timeGetTime(), 1000u + 3000 * 7);
}

TEST_F(ScriptClock, aThreadOfAnotherOriginMaySleepToo)
{
    std::atomic<bool> done = false;
    DWORD slept = 0;
    std::thread foreign([&done, &slept] {
        const DWORD before = timeGetTime();
        Sleep(20);
        slept = timeGetTime() - before;
        done = true;
    });
    while (!done)
        Sleep(5);
    foreign.join();
    EXPECT_GE(slept, 20u);
}

TEST(ScriptClockOff, wakesSleepersAndTimeIsReal)
{
    desktop::useScriptClock(5);
    Log log;
    Sleeper sleeper { &log, 'a', 1'000'000, 1 };
    const HANDLE thread = CreateThread(nullptr, 0, sleepRepeatedly, &sleeper, 0, nullptr);
    Sleep(1);
    EXPECT_EQ(timeGetTime(), 6u);
    winapi::useRealClock();
    finish(thread);
    const DWORD before = timeGetTime();
    Sleep(15);
    EXPECT_GE(timeGetTime() - before, 14u);
}

} // namespace
} // namespace kez
