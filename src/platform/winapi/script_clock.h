// SPDX-License-Identifier: MIT
/// The turns of the script clock (control_kernel.h), for the kernel's sources only. All state lies
/// behind one lock, which the threads share with it.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace kez::winapi {

using Guard = std::unique_lock<std::mutex>;

/// Guards the clock and everything about threads. Never destroyed: threads may outlive main.
std::mutex& kernelLock();

constexpr std::uint64_t never = UINT64_MAX;

/// One thread that sleeps, waits or has yet to begin. Lives on its stack, or where it is created.
struct Rest {
    std::uint64_t wakeTime;
    bool takesPart; ///< Counts as running as soon as it is woken.
    std::uint64_t order = 0; ///< Of equal times the smaller order comes first.
    bool awake = false;
    std::condition_variable signal {};
};

bool scriptClockRuns(const Guard&); ///< The lock is held, here and below.
std::uint64_t scriptNow(const Guard&);

/// Whether the calling thread takes part. Set once by a thread of CreateThread, and by the thread
/// that switches the clock on.
bool& thisThreadTakesPart();

/// A thread of CreateThread has come into being, or has ended. The former before it runs.
void threadCreated(const Guard&);
void threadEnded(const Guard&);

void lineUp(const Guard&, Rest& rest); ///< Puts it in line for its time; does not wait.
void wakeNow(const Guard&, Rest& rest); ///< Gives one that is in line the present as its time.
void restUntilTurn(Guard& guard, Rest& rest); ///< Lines up, hands on, waits.
void awaitTurn(Guard& guard, Rest& rest); ///< Waits in line; for one that has yet to begin.

} // namespace kez::winapi
