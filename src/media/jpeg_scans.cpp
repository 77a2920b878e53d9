// SPDX-License-Identifier: MIT
#include "media/jpeg_scans.h"

#include "platform/large_memory.h"

#include <algorithm>

namespace kez {

namespace {

constexpr int mostScans = 200;

// The decoder looks back two rows of its own, of at most four rows of blocks, to smooth blocks that
// are not known exactly.
constexpr JDIMENSION rowsLookedBack = 3 * MAX_SAMP_FACTOR;

JpegScans& scansOf(j_common_ptr info)
{
    return *reinterpret_cast<JpegScans*>(info->progress);
}

void watch(j_common_ptr info)
{
    if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > mostScans)
        scansOf(info).errors->giveUp("It has too many scans");
}

// Less is not worth a call of the system. Small pictures are not worth one at all.
constexpr std::size_t leastGivenBack = std::size_t { 1 } << 20;

// The rows of a colour lie in one piece: the library divides only what is beyond a gigabyte, and is
// not allowed that much.
void giveBackBefore(JpegScans::Samples& samples, JBLOCKROW row, JDIMENSION number)
{
    const auto bytes = static_cast<std::size_t>(row - samples.kept) * sizeof(JBLOCK);
    if (bytes < leastGivenBack)
        return;
    giveBack(samples.kept, bytes);
    samples.kept = row;
    samples.keptRow = number;
}

// Rows are written while the file is read, and then asked for once, from the top, to be decoded.
JBLOCKARRAY accessRows(
    j_common_ptr info, jvirt_barray_ptr array, JDIMENSION first, JDIMENSION count, boolean writable)
{
    JpegScans& scans = scansOf(info);
    const JBLOCKARRAY rows = scans.access(info, array, first, count, writable);
    if (writable != FALSE)
        return rows;
    auto* const samples = std::ranges::find_if(scans.samples,
        [&](const auto& each) { return each.array == array || each.array == nullptr; });
    if (samples == scans.samples.end())
        return rows;
    if (samples->array == nullptr)
        *samples = { array, rows[0], first };
    else if (first > samples->keptRow + rowsLookedBack)
        giveBackBefore(*samples, scans.access(info, array, first - rowsLookedBack, 1, writable)[0],
            first - rowsLookedBack);
    return rows;
}

} // namespace

void JpegScans::attachTo(jpeg_decompress_struct& info, JpegErrors& errorsOfInfo)
{
    errors = &errorsOfInfo;
    manager.progress_monitor = watch;
    info.progress = &manager;
    access = info.mem->access_virt_barray;
    info.mem->access_virt_barray = accessRows;
}

} // namespace kez
