// SPDX-License-Identifier: MIT
#include "script_clock.h"

#include "control_kernel.h"

#include <set>

namespace kez::winapi {

namespace {

struct Sooner {
    bool operator()(const Rest* a, const Rest* b) const
    {
        return a->wakeTime != b->wakeTime ? a->wakeTime < b->wakeTime : a->order < b->order;
    }
};

struct Clock {
    std::mutex lock;
    bool runs = false;
    std::uint64_t now = 0;
    std::uint64_t orders = 0;
    int threads = 0; // that take part: those of CreateThread, and those that switched the clock on
    int running = 0; // of them; only kept while the clock runs
    std::set<Rest*, Sooner> line;
};

Clock& clock()
{
    static Clock& only = *new Clock;
    return only;
}

void wake(Rest& rest)
{
    clock().line.erase(&rest);
    rest.awake = true;
    if (rest.takesPart)
        ++clock().running;
    rest.signal.notify_one();
}

// While nobody runs: to the next in line. A rest that takes no part (a thread of another origin)
// is woken and not waited for.
void handOn()
{
    Clock& c = clock();
    while (c.runs && c.running == 0 && !c.line.empty() && (*c.line.begin())->wakeTime != never) {
        Rest& next = **c.line.begin();
        if (next.wakeTime > c.now)
            c.now = next.wakeTime;
        wake(next);
    }
}

} // namespace

std::mutex& kernelLock()
{
    return clock().lock;
}

bool scriptClockRuns(const Guard&)
{
    return clock().runs;
}

std::uint64_t scriptNow(const Guard&)
{
    return clock().now;
}

bool& thisThreadTakesPart()
{
    thread_local bool takesPart = false;
    return takesPart;
}

void threadCreated(const Guard&)
{
    ++clock().threads;
}

void threadEnded(const Guard&)
{
    --clock().threads;
    --clock().running;
    handOn();
}

void lineUp(const Guard&, Rest& rest)
{
    rest.order = ++clock().orders;
    clock().line.insert(&rest);
}

void wakeNow(const Guard& guard, Rest& rest)
{
    if (clock().line.erase(&rest) == 0)
        return; // awake already
    rest.wakeTime = clock().now;
    lineUp(guard, rest);
}

void restUntilTurn(Guard& guard, Rest& rest)
{
    lineUp(guard, rest);
    if (rest.takesPart)
        --clock().running;
    handOn();
    awaitTurn(guard, rest);
}

void awaitTurn(Guard& guard, Rest& rest)
{
    rest.signal.wait(guard, [&rest] { return rest.awake; });
}

void useScriptClock(DWORD start)
{
    const Guard guard(kernelLock());
    Clock& c = clock();
    if (!thisThreadTakesPart()) {
        thisThreadTakesPart() = true;
        ++c.threads;
        ++c.running;
    }
    if (!c.runs)
        c.running = c.threads;
    c.runs = true;
    // The order of the line does not change when all times shift alike.
    for (Rest* rest : c.line)
        if (rest->wakeTime != never)
            rest->wakeTime = rest->wakeTime - c.now + start;
    c.now = start;
}

void useRealClock()
{
    const Guard guard(kernelLock());
    clock().runs = false;
    while (!clock().line.empty())
        wake(**clock().line.begin());
}

} // namespace kez::winapi
