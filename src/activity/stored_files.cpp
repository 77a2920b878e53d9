// SPDX-License-Identifier: MIT
#include "activity/stored_files.h"

#include "activity/guide.h"
#include "core/flags.h"
#include "platform/files.h"

#include <algorithm>
#include <limits>

namespace kez {

bool writeStoredFile(const String& path, std::span<const std::uint8_t> bytes)
{
    const auto before = static_cast<std::int64_t>(files::size(path.view()));
    if (!files::write(path.view(), bytes))
        return false;
    addDiskUsed(static_cast<std::int64_t>(bytes.size()) - before);
    return true;
}

bool copyStoredFile(const String& from, const String& to)
{
    const auto size = static_cast<std::int64_t>(files::size(from.view()));
    if (!files::copy(from.view(), to.view()))
        return false;
    addDiskUsed(size);
    return true;
}

bool deleteStoredFile(const String& path)
{
    const auto size = static_cast<std::int64_t>(files::size(path.view()));
    if (!files::exists(path.view()) || !files::remove(path.view()))
        return false;
    addDiskUsed(-size);
    return true;
}

bool hasRoom(int bytes)
{
    const bool fits = std::int64_t { diskUsed } + bytes < diskBudget;
    if (!fits)
        sayGuide(clip::noRoom);
    return fits;
}

int addDiskUsed(std::int64_t change)
{
    using Limits = std::numeric_limits<std::int32_t>;
    diskUsed = static_cast<std::int32_t>(
        std::clamp<std::int64_t>(diskUsed + change, Limits::min(), Limits::max()));
    return diskUsed;
}

} // namespace kez
