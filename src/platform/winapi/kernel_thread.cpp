// SPDX-License-Identifier: MIT
#include "mmsystem.h"
#include "script_clock.h"
#include "winbase.h"

#include <atomic>
#include <chrono>
#include <csetjmp>
#include <map>
#include <memory>
#include <thread>
#include <vector>

#include <pthread.h>

using namespace kez::winapi;

namespace {

struct Thread {
    Thread(LPTHREAD_START_ROUTINE routine, LPVOID passed, DWORD number)
        : start(routine)
        , argument(passed)
        , id(number)
    {
    }

    LPTHREAD_START_ROUTINE start;
    LPVOID argument;
    DWORD id;
    Rest birth { 0, true }; // its first turn, on the script clock
    bool ended = false;
    std::condition_variable end {}; // for waits on the real clock
    std::vector<Rest*> waiting {}; // for waits on the script clock
};

using ThreadPointer = std::shared_ptr<Thread>; // shared by the handle and the running thread

// Open handles, behind kernelLock. A handle is looked up before it is believed.
std::map<HANDLE, ThreadPointer>& handles()
{
    static auto& only = *new std::map<HANDLE, ThreadPointer>;
    return only;
}

thread_local DWORD thisThreadId = 0;
thread_local std::jmp_buf* thisThreadsEnd = nullptr;

DWORD newThreadId()
{
    static std::atomic<DWORD> last { 0 };
    return last += 4; // as the platform counts them
}

void begin(Thread& thread)
{
    thisThreadTakesPart() = true;
    thisThreadId = thread.id;
    Guard guard(kernelLock());
    if (thread.birth.order != 0) // it was put in line
        awaitTurn(guard, thread.birth);
}

void finish(Thread& thread)
{
    const Guard guard(kernelLock());
    thread.ended = true;
    thread.end.notify_all();
    for (Rest* rest : thread.waiting)
        wakeNow(guard, *rest);
    threadEnded(guard);
}

void* run(void* passed)
{
    const std::unique_ptr<ThreadPointer> own(static_cast<ThreadPointer*>(passed));
    Thread& thread = **own;
    begin(thread);
    std::jmp_buf end;
    thisThreadsEnd = &end;
    if (setjmp(end) == 0)
        thread.start(thread.argument);
    finish(thread);
    return nullptr;
}

bool startDetached(const ThreadPointer& thread)
{
    auto own = std::make_unique<ThreadPointer>(thread);
    pthread_t started;
    if (pthread_create(&started, nullptr, run, own.get()) != 0)
        return false;
    own.release(); // now the thread's
    pthread_detach(started);
    return true;
}

ThreadPointer find(const Guard&, HANDLE handle)
{
    const auto found = handles().find(handle);
    if (found != handles().end())
        return found->second;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

void waitOnScriptClock(Guard& guard, Thread& thread, DWORD milliseconds)
{
    Rest rest { milliseconds == INFINITE ? never : scriptNow(guard) + milliseconds,
        thisThreadTakesPart() };
    thread.waiting.push_back(&rest);
    restUntilTurn(guard, rest);
    std::erase(thread.waiting, &rest);
}

} // namespace

HANDLE CreateThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T stackSize,
    LPTHREAD_START_ROUTINE start, LPVOID argument, DWORD flags, LPDWORD threadId)
{
    if (attributes != nullptr || stackSize != 0 || start == nullptr || flags != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto thread = std::make_shared<Thread>(start, argument, newThreadId());
    const Guard guard(kernelLock()); // held so that the thread begins with everything in place
    if (!startDetached(thread)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    threadCreated(guard);
    if (scriptClockRuns(guard)) {
        thread->birth.wakeTime = scriptNow(guard);
        lineUp(guard, thread->birth);
    }
    handles().emplace(thread.get(), thread);
    if (threadId != nullptr)
        *threadId = thread->id;
    return thread.get();
}

// Not by way of the frames in between, whose code may be gone. The thread's handle tells of its end
// only when the library has been let go.
void FreeLibraryAndExitThread(HMODULE library, DWORD /*exitCode*/)
{
    FreeLibrary(library);
    std::longjmp(*thisThreadsEnd, 1);
}

DWORD GetCurrentThreadId()
{
    if (thisThreadId == 0)
        thisThreadId = newThreadId();
    return thisThreadId;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds)
{
    Guard guard(kernelLock());
    const ThreadPointer thread = find(guard, handle);
    if (thread == nullptr)
        return WAIT_FAILED;
    const auto ended = [&thread] { return thread->ended; };
    // Once, but a wait without limit goes on when the clock is changed over.
    for (bool again = milliseconds != 0; again && !ended(); again = milliseconds == INFINITE) {
        if (scriptClockRuns(guard))
            waitOnScriptClock(guard, *thread, milliseconds);
        else if (milliseconds == INFINITE)
            thread->end.wait(guard, ended);
        else
            thread->end.wait_for(guard, std::chrono::milliseconds(milliseconds), ended);
    }
    return ended() ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

BOOL CloseHandle(HANDLE handle)
{
    const Guard guard(kernelLock());
    if (find(guard, handle) == nullptr)
        return FALSE;
    handles().erase(handle);
    return TRUE;
}

void Sleep(DWORD milliseconds)
{
    Guard guard(kernelLock());
    if (!scriptClockRuns(guard)) {
        guard.unlock();
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        return;
    }
    Rest rest { milliseconds == INFINITE ? never : scriptNow(guard) + milliseconds,
        thisThreadTakesPart() };
    restUntilTurn(guard, rest);
}

DWORD timeGetTime()
{
    {
        const Guard guard(kernelLock());
        if (scriptClockRuns(guard))
            return static_cast<DWORD>(scriptNow(guard));
    }
    using namespace std::chrono;
    const auto passed = steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(duration_cast<milliseconds>(passed).count());
}

DWORD GetTickCount()
{
    return timeGetTime();
}
