// SPDX-License-Identifier: MIT
#include "core/task.h"

#include "core/clock.h"

namespace kez {

List& taskRegistry()
{
    // Never destroyed: static tasks leave it in any order at unload.
    static List& tasks = *new List;
    return tasks;
}

List& Task::registry()
{
    return taskRegistry();
}

TaskBody Task::run()
{
    co_return;
}

std::suspend_always Task::sleep(std::uint32_t milliseconds)
{
    wakeTime_ = frameTime + milliseconds;
    resumable_ = true;
    return {};
}

void Task::restart()
{
    wakeTime_ = 0;
    resumable_ = false;
    restartAsked_ = stepping_; // a coroutine cannot be destroyed while it runs
    if (!stepping_)
        body_ = TaskBody();
}

void Task::step()
{
    if (stepping_) // a frame inside a frame: the body is running already
        return;
    if (!resumable_)
        body_ = run();
    resumable_ = false;
    stepping_ = true;
    body_.resume();
    stepping_ = false;
    if (restartAsked_) {
        restart();
    } else if (!resumable_) {
        body_ = TaskBody(); // it returned: the next step calls it again
    }
}

void runDueTasks()
{
    const List& tasks = taskRegistry();
    for (int i = 0; List* node = tasks.at(i); ++i) {
        auto* task = static_cast<Task*>(node->item());
        if (frameTime > task->wakeTime())
            task->step();
    }
}

} // namespace kez
