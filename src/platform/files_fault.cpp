// SPDX-License-Identifier: MIT
#include "platform/files_fault.h"

#include "platform/files.h"
#include "platform/refuse.h"

#include <mutex>

namespace kez::files {

namespace {

std::mutex lock; // the camera's driver reads files on another thread
Fault::Plan plan;

// True when the count has reached its turn; it then never comes again.
bool isTurn(int& count)
{
    return count >= 0 && count-- == 0;
}

bool takeRoom(std::uint64_t bytes)
{
    if (plan.roomBytes < 0)
        return true;
    if (bytes > static_cast<std::uint64_t>(plan.roomBytes))
        return refuse(ERROR_DISK_FULL);
    plan.roomBytes -= static_cast<std::int64_t>(bytes);
    return true;
}

} // namespace

Fault::Fault(const Plan& wanted)
{
    const std::lock_guard guard(lock);
    plan = wanted;
}

Fault::~Fault()
{
    const std::lock_guard guard(lock);
    plan = {};
}

namespace fault {

bool mayWrite(std::uint64_t bytes)
{
    const std::lock_guard guard(lock);
    if (isTurn(plan.failWriteNumber))
        return refuse(ERROR_WRITE_FAULT);
    return takeRoom(bytes);
}

bool mayCommit()
{
    const std::lock_guard guard(lock);
    return isTurn(plan.failCommitNumber) ? refuse(ERROR_WRITE_FAULT) : true;
}

bool mayRename()
{
    const std::lock_guard guard(lock);
    return plan.renamesFail ? refuse(ERROR_IO_DEVICE) : true;
}

bool mayRemove()
{
    const std::lock_guard guard(lock);
    return plan.removesFail ? refuse(ERROR_IO_DEVICE) : true;
}

} // namespace fault

} // namespace kez::files
