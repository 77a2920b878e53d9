// SPDX-License-Identifier: MIT
#include "platform/files.h"
#include "platform/files_system.h"
#include "platform/native_linux.h"

#include <cerrno>

#include <sys/stat.h>

namespace kez::files {

using namespace native;

namespace {

bool isListed(int directory, const dirent& entry, Naming naming)
{
    const std::string_view name = entry.d_name;
    if (naming == Naming::Ours && (!isValidName(name) || isBesideName(name)))
        return false;
    if (entry.d_type == DT_REG)
        return true;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return false;

    struct stat info { };

    return ::fstatat(directory, entry.d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
}

} // namespace

bool createDirectory(std::string_view path)
{
    const std::string native = nativePath(path);
    if (native.empty() || ::mkdir(native.c_str(), 0777) == 0)
        return !native.empty();
    const int error = errno;
    std::uint64_t bytes = 0;
    if (error == EEXIST && system::kindOf(native, bytes) == system::Kind::Directory)
        return true;
    errno = error;
    return error == ENOENT ? refuse(ERROR_PATH_NOT_FOUND) : fail();
}

std::vector<Entry> list(std::string_view directory, std::string_view extension, Naming naming)
{
    std::vector<Entry> entries;
    const std::string native
        = naming == Naming::Ours ? nativePath(directory) : std::string(directory);
    if (native.empty())
        return entries;
    const Directory open = openDirectory(native);
    if (!open) {
        if (errno == ENOENT)
            refuse(ERROR_PATH_NOT_FOUND);
        else
            fail();
        return entries;
    }
    while (const dirent* entry = ::readdir(open.get()))
        if (hasExtension(entry->d_name, extension) && isListed(::dirfd(open.get()), *entry, naming))
            entries.push_back({ entry->d_name, {} });
    return entries;
}

} // namespace kez::files
