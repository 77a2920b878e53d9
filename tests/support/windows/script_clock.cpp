// SPDX-License-Identifier: MIT
// A clock that jumps to whoever wakes next. Threads that take part (those of CreateThread and the
// one that switched the clock on) run one at a time.
#include "control_kernel.h"
#include "imported.h"

#include <mmsystem.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

constexpr std::uint64_t never = UINT64_MAX;

/// One thread that sleeps, waits for another's end or has yet to begin.
struct Rest {
    std::uint64_t wakeTime = 0;
    std::uint64_t order = 0;
    DWORD endOf = 0; ///< The thread waited for.
    HANDLE signal = CreateEventA(nullptr, TRUE, FALSE, nullptr);

    Rest() = default;
    Rest(const Rest&) = delete;
    Rest& operator=(const Rest&) = delete;

    ~Rest() { CloseHandle(signal); }
};

struct Clock {
    CRITICAL_SECTION lock;
    DWORD takesPart = TlsAlloc(); ///< Not null in threads that do.
    bool runs = false;
    std::uint64_t now = 0;
    std::uint64_t orders = 0;
    int threads = 0;
    int running = 0;
    std::vector<Rest*> line;

    Clock() { InitializeCriticalSection(&lock); }
};

// Made before anything else. Not by the first who asks: two who ask at once would wait for each
// other by means of the very functions that are replaced here.
struct TheSystem {
    Clock& clock = *new Clock; ///< Threads may outlive main.
    decltype(&Sleep) sleep = kez::winapi::systemFunction<decltype(Sleep)>("kernel32", "Sleep");
    decltype(&timeGetTime) time
        = kez::winapi::systemFunction<decltype(timeGetTime)>("winmm", "timeGetTime");
    decltype(&WaitForSingleObject) wait
        = kez::winapi::systemFunction<decltype(WaitForSingleObject)>(
            "kernel32", "WaitForSingleObject");
    decltype(&CreateThread) createThread
        = kez::winapi::systemFunction<decltype(CreateThread)>("kernel32", "CreateThread");
};

__attribute__((init_priority(101))) TheSystem theSystem;

Clock& theClock()
{
    return theSystem.clock;
}

class Guard {
public:
    Guard() { EnterCriticalSection(&theClock().lock); }

    ~Guard() { LeaveCriticalSection(&theClock().lock); }

    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
};

bool takesPart()
{
    return TlsGetValue(theClock().takesPart) != nullptr;
}

void wake(Rest& rest)
{
    std::erase(theClock().line, &rest);
    ++theClock().running;
    SetEvent(rest.signal);
}

bool sooner(const Rest* a, const Rest* b)
{
    return a->wakeTime != b->wakeTime ? a->wakeTime < b->wakeTime : a->order < b->order;
}

// While nobody runs: to the next in line.
void handOn()
{
    Clock& clock = theClock();
    if (!clock.runs || clock.running != 0 || clock.line.empty())
        return;
    Rest& next = **std::ranges::min_element(clock.line, sooner);
    if (next.wakeTime == never)
        return;
    clock.now = std::max(clock.now, next.wakeTime);
    wake(next);
}

void lineUp(Rest& rest)
{
    rest.order = ++theClock().orders;
    theClock().line.push_back(&rest);
}

// Gives up the turn until `rest` is due. False at once when the clock does not run for this thread.
bool restUntilTurn(Rest& rest, DWORD milliseconds)
{
    {
        const Guard guard;
        Clock& clock = theClock();
        if (!clock.runs || !takesPart())
            return false;
        rest.wakeTime = milliseconds == INFINITE ? never : clock.now + milliseconds;
        lineUp(rest);
        --clock.running;
        handOn();
    }
    theSystem.wait(rest.signal, INFINITE);
    return true;
}

void WINAPI scriptSleep(DWORD milliseconds)
{
    Rest rest;
    if (!restUntilTurn(rest, milliseconds))
        theSystem.sleep(milliseconds);
}

DWORD WINAPI scriptTime()
{
    const Guard guard;
    return theClock().runs ? static_cast<DWORD>(theClock().now) : theSystem.time();
}

DWORD WINAPI scriptWait(HANDLE handle, DWORD milliseconds)
{
    const DWORD already = theSystem.wait(handle, 0);
    const DWORD thread = GetThreadId(handle);
    if (already != WAIT_TIMEOUT || milliseconds == 0 || thread == 0)
        return already == WAIT_TIMEOUT ? theSystem.wait(handle, milliseconds) : already;
    Rest rest;
    rest.endOf = thread;
    if (!restUntilTurn(rest, milliseconds))
        return theSystem.wait(handle, milliseconds);
    // A thread that has handed on for good is about to be gone for the system too.
    return theSystem.wait(handle, rest.endOf == 0 ? INFINITE : 0);
}

struct Start {
    LPTHREAD_START_ROUTINE routine;
    LPVOID argument;
    Rest birth;
    bool inLine = false;
};

void endTurns()
{
    const Guard guard;
    Clock& clock = theClock();
    for (Rest* rest : clock.line) {
        if (rest->endOf == GetCurrentThreadId()) {
            rest->endOf = 0;
            rest->wakeTime = clock.now;
        }
    }
    --clock.threads;
    --clock.running;
    handOn();
}

DWORD WINAPI runThread(LPVOID passed)
{
    const std::unique_ptr<Start> start(static_cast<Start*>(passed));
    TlsSetValue(theClock().takesPart, start.get());
    if (start->inLine)
        theSystem.wait(start->birth.signal, INFINITE);
    return start->routine(start->argument);
}

// Every thread calls it when it ends, in whatever way.
void NTAPI noticeEnd(void*, DWORD reason, void*)
{
    if (reason == DLL_THREAD_DETACH && takesPart())
        endTurns();
}

__attribute__((section(".CRT$XLB"), used)) const PIMAGE_TLS_CALLBACK noticeThreadEnds = noticeEnd;

HANDLE WINAPI scriptThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T stackSize,
    LPTHREAD_START_ROUTINE routine, LPVOID argument, DWORD flags, LPDWORD id)
{
    if (flags != 0) // GoogleTest's: one for each thread, whose end it awaits
        return theSystem.createThread(attributes, stackSize, routine, argument, flags, id);
    auto start = std::make_unique<Start>();
    start->routine = routine;
    start->argument = argument;
    const Guard guard; // held so that the thread begins with everything in place
    Clock& clock = theClock();
    start->inLine = clock.runs;
    start->birth.wakeTime = clock.now;
    Start* const passed = start.get();
    const HANDLE thread
        = theSystem.createThread(attributes, stackSize, runThread, passed, flags, id);
    if (thread == nullptr)
        return nullptr;
    start.release(); // now the thread's
    ++clock.threads;
    if (passed->inLine)
        lineUp(passed->birth);
    else
        ++clock.running;
    return thread;
}

KEZ_IN_PLACE_OF("Sleep@4", scriptSleep);
KEZ_IN_PLACE_OF("timeGetTime@0", scriptTime);
KEZ_IN_PLACE_OF("WaitForSingleObject@8", scriptWait);
KEZ_IN_PLACE_OF("CreateThread@24", scriptThread);

} // namespace

namespace kez::winapi {

void useScriptClock(DWORD start)
{
    const Guard guard;
    Clock& clock = theClock();
    if (!takesPart()) {
        TlsSetValue(clock.takesPart, &clock);
        ++clock.threads;
    }
    if (!clock.runs)
        clock.running = clock.threads;
    clock.runs = true;
    for (Rest* rest : clock.line)
        if (rest->wakeTime != never)
            rest->wakeTime = rest->wakeTime - clock.now + start;
    clock.now = start;
}

void useRealClock()
{
    const Guard guard;
    theClock().runs = false;
    while (!theClock().line.empty())
        wake(*theClock().line.front());
}

} // namespace kez::winapi
