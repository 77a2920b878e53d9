// SPDX-License-Identifier: MIT
/// Tasks are services that every frame runs while they are attached. A task's body is a coroutine:
/// `co_await sleep(40)` gives the frame back, and the body goes on at that point in the first frame
/// whose time is past the wake time, with its local variables as they were. All bodies run on the
/// host's thread, inside the frame, one at a time.
#pragma once

#include "core/service.h"

#include <coroutine>
#include <cstdint>
#include <exception>
#include <utility>

namespace kez {

/// The coroutine of a task's body; owns its frame. Empty when default-built.
class TaskBody {
public:
    // NOLINTBEGIN(readability-identifier-naming): the language's names
    struct promise_type {
        TaskBody get_return_object()
        {
            return TaskBody(std::coroutine_handle<promise_type>::from_promise(*this));
        }

        std::suspend_always initial_suspend() noexcept { return {}; }

        std::suspend_always final_suspend() noexcept { return {}; }

        void return_void() { }

        void unhandled_exception() { std::terminate(); }
    };

    // NOLINTEND(readability-identifier-naming)

    TaskBody() = default;

    TaskBody(TaskBody&& other) noexcept
        : handle_(std::exchange(other.handle_, nullptr))
    {
    }

    TaskBody& operator=(TaskBody&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }

    TaskBody(const TaskBody&) = delete;
    TaskBody& operator=(const TaskBody&) = delete;

    ~TaskBody()
    {
        if (handle_)
            handle_.destroy();
    }

    explicit operator bool() const { return static_cast<bool>(handle_); }

    [[nodiscard]] bool done() const { return handle_.done(); }

    void resume() { handle_.resume(); }

private:
    explicit TaskBody(std::coroutine_handle<promise_type> handle)
        : handle_(handle)
    {
    }

    std::coroutine_handle<promise_type> handle_ = nullptr;
};

class Task : public Service {
public:
    List& registry() override; ///< The task registry.

    /// Slot 11: the body. Called to begin it, and again after it has returned without sleeping.
    virtual TaskBody run();

    /// `co_await sleep(ms)` suspends the body until the first frame later than now + ms.
    [[nodiscard]] std::suspend_always sleep(std::uint32_t milliseconds);

    /// The next step starts the body at its beginning. A body may restart its own task: it then
    /// runs on to its next sleep, and is begun anew after that.
    void restart();

    /// Runs the body up to its next sleep or its end. For the frame.
    void step();

    [[nodiscard]] std::uint32_t wakeTime() const { return wakeTime_; }

    [[nodiscard]] bool resumable() const { return resumable_; }

private:
    std::uint32_t wakeTime_ = 0; ///< The task is due in frames later than this.
    bool resumable_ = false; ///< The body sleeps and goes on where it stopped.
    bool stepping_ = false;
    bool restartAsked_ = false; ///< By the body itself, while it runs.
    TaskBody body_;
};

/// The tasks that are attached, in the order in which they were.
List& taskRegistry();

/// One pass over the task registry by position: every task whose wake time is before `frameTime`
/// takes a step. The count is read afresh at every position, so a task attached meanwhile runs in
/// the same frame, and one that leaves makes its follower miss this frame.
void runDueTasks();

} // namespace kez
