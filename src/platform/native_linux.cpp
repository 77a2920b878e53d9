// SPDX-License-Identifier: MIT
#include "platform/native_linux.h"

#include "platform/files.h"

#include <cerrno>

#include <sys/stat.h>

namespace kez::files {

namespace native {

namespace {

struct ErrorPair {
    int ours;
    DWORD theirs;
};

constexpr ErrorPair errorPairs[] = {
    { ENOENT, ERROR_FILE_NOT_FOUND },
    { ENOTDIR, ERROR_PATH_NOT_FOUND },
    { ELOOP, ERROR_PATH_NOT_FOUND },
    { EACCES, ERROR_ACCESS_DENIED },
    { EPERM, ERROR_ACCESS_DENIED },
    { EISDIR, ERROR_ACCESS_DENIED },
    { ENXIO, ERROR_ACCESS_DENIED },
    { ENOMEM, ERROR_NOT_ENOUGH_MEMORY },
    { EMFILE, ERROR_TOO_MANY_OPEN_FILES },
    { ENFILE, ERROR_TOO_MANY_OPEN_FILES },
    { EROFS, ERROR_WRITE_PROTECT },
    { ENOSPC, ERROR_DISK_FULL },
    { EDQUOT, ERROR_DISK_FULL },
    { EFBIG, ERROR_FILE_TOO_LARGE },
    { EEXIST, ERROR_ALREADY_EXISTS },
    { ENOTEMPTY, ERROR_DIR_NOT_EMPTY },
    { ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE },
    { EBUSY, ERROR_BUSY },
    { ETXTBSY, ERROR_SHARING_VIOLATION },
};

// The entry that is `name` but for its case; the first in byte order where there are several.
std::string searchWithoutCase(const std::string& directory, std::string_view name)
{
    std::string found;
    const Directory open = openDirectory(directory);
    while (const dirent* entry = open ? ::readdir(open.get()) : nullptr)
        if (sameName(entry->d_name, name) && (found.empty() || entry->d_name < found))
            found = entry->d_name;
    return found;
}

std::string joined(const PathParts& parts)
{
    std::string path = parts.root.ends_with('\\') ? "/" : "";
    for (const std::string_view name : parts.names)
        path.append(name).append(1, '/');
    if (!parts.names.empty() && !parts.endsInSeparator)
        path.pop_back();
    return path.empty() ? "." : path; // a drive letter alone, which means nothing here
}

std::string matched(const PathParts& parts)
{
    std::string path = parts.root.ends_with('\\') ? "/" : "";
    bool found = true;
    for (const std::string_view name : parts.names) {
        std::string spelt(name);
        if (found && !isThere(path + spelt)) {
            const std::string other = searchWithoutCase(path, name);
            found = !other.empty();
            if (found)
                spelt = other;
        }
        path += spelt + '/';
    }
    if (!parts.endsInSeparator)
        path.pop_back();
    return path;
}

} // namespace

bool fail()
{
    for (const ErrorPair& pair : errorPairs)
        if (pair.ours == errno)
            return refuse(pair.theirs);
    return refuse(ERROR_IO_DEVICE);
}

Directory openDirectory(const std::string& native)
{
    return Directory(::opendir(native.empty() ? "." : native.c_str()));
}

bool isThere(const std::string& native)
{
    struct stat info { };

    return ::lstat(native.c_str(), &info) == 0;
}

std::string folderOf(const std::string& native)
{
    const std::size_t slash = native.rfind('/');
    return slash == std::string::npos ? std::string() : native.substr(0, slash + 1);
}

std::string locate(const PathParts& parts)
{
    const std::string exact = joined(parts);
    return parts.names.empty() || isThere(exact) ? exact : matched(parts);
}

} // namespace native

std::string nativePath(std::string_view path)
{
    PathParts parts;
    if (splitPath(path, parts))
        return native::locate(parts);
    refuse(ERROR_INVALID_NAME);
    return {};
}

} // namespace kez::files
