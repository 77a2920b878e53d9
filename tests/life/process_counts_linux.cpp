// SPDX-License-Identifier: MIT
#include "process_counts.h"

#include "control.h"

#include <filesystem>
#include <iterator>

namespace kez::life {

namespace {

long entries(const char* directory)
{
    using Each = std::filesystem::directory_iterator;
    return static_cast<long>(std::distance(Each(directory), Each()));
}

} // namespace

ProcessCounts processCounts()
{
    const winapi::LiveObjects alive = winapi::liveObjects();
    return { { "threads", entries("/proc/self/task") }, { "open files", entries("/proc/self/fd") },
        { "surfaces", alive.surfaces }, { "device contexts", alive.deviceContexts },
        { "GDI objects", alive.gdiObjects }, { "windows", alive.windows } };
}

int surfacesOf(IDirectDraw&)
{
    return winapi::liveObjects().surfaces; // of one object at a time
}

} // namespace kez::life
