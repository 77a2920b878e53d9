// SPDX-License-Identifier: MIT
#include "platform/files.h"
#include "platform/files_system.h"
#include "platform/native_linux.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kez::files::system {

using namespace native;

namespace {

constexpr int besideAttempts = 10;

// Whether the file that was opened is the one that bears the name now.
bool isStillNamed(const struct stat& opened, const std::string& native)
{
    struct stat named { };

    return ::lstat(native.c_str(), &named) == 0 && named.st_ino == opened.st_ino
        && named.st_dev == opened.st_dev;
}

// The file when nobody else writes it; −1 when somebody does, or with `broken` when none can be
// made here.
int claim(const std::string& beside, bool& broken)
{
    constexpr int flags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    const int file = ::open(beside.c_str(), flags, 0666);
    if (file < 0) {
        broken = errno != EISDIR && errno != ELOOP && errno != ENXIO;
        return -1;
    }

    struct stat info { };

    const bool taken = ::fstat(file, &info) != 0 || !S_ISREG(info.st_mode)
        || (::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        || !isStillNamed(info, beside) || ::ftruncate(file, 0) != 0;
    if (!taken)
        return file;
    ::close(file);
    return -1;
}

bool mayReplace(const std::string& place, mode_t& mode)
{
    struct stat info { };

    if (::stat(place.c_str(), &info) != 0)
        return true;
    if (!S_ISREG(info.st_mode) || ::access(place.c_str(), W_OK) != 0)
        return refuse(ERROR_ACCESS_DENIED);
    mode = info.st_mode & 0777;
    return true;
}

bool renameWithoutReplacing(const std::string& from, const std::string& to)
{
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return fail();
    // A file system without that: a second name never replaces one, where there are second names.
    if (::link(from.c_str(), to.c_str()) == 0)
        return ::unlink(from.c_str()) == 0 || fail();
    if (errno == EEXIST || isThere(to))
        return refuse(ERROR_ALREADY_EXISTS);
    return ::rename(from.c_str(), to.c_str()) == 0 || fail();
}

} // namespace

Kind kindOf(const std::string& native, std::uint64_t& size)
{
    struct stat info { };

    if (::stat(native.c_str(), &info) != 0) {
        fail();
        return Kind::None;
    }
    size = static_cast<std::uint64_t>(info.st_size);
    if (S_ISREG(info.st_mode))
        return Kind::File;
    return S_ISDIR(info.st_mode) ? Kind::Directory : Kind::Other;
}

std::FILE* openRegular(const std::string& native, std::uint64_t& size)
{
    // Without O_NONBLOCK a pipe without a writer would hold us up for ever.
    const int file = ::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (file < 0) {
        fail();
        return nullptr;
    }

    struct stat info { };

    if (::fstat(file, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(file);
        refuse(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    size = static_cast<std::uint64_t>(info.st_size);
    return ::fdopen(file, "rb");
}

std::FILE* openBeside(const std::string& place, std::string& beside)
{
    const std::string name = place.substr(folderOf(place).size());
    mode_t mode = 0;
    if (!isValidName(name)) { // the path ends in a separator
        refuse(ERROR_INVALID_NAME);
        return nullptr;
    }
    if (!mayReplace(place, mode))
        return nullptr;
    bool broken = false;
    for (int attempt = 0; attempt < besideAttempts && !broken; ++attempt) {
        beside = folderOf(place) + besideName(name, attempt);
        const int file = claim(beside, broken);
        if (file < 0)
            continue;
        if (mode != 0)
            ::fchmod(file, mode);
        return ::fdopen(file, "wb");
    }
    if (!broken)
        refuse(ERROR_SHARING_VIOLATION);
    else if (errno == ENOENT)
        refuse(ERROR_PATH_NOT_FOUND);
    else
        fail();
    return nullptr;
}

bool putInPlace(std::FILE* file, const std::string& beside, const std::string& place)
{
    bool ok = std::fflush(file) == 0 && ::fdatasync(::fileno(file)) == 0;
    if (!ok)
        fail();
    // The lock lives on in the second descriptor until the new name stands.
    const int lock = ::dup(::fileno(file));
    if (std::fclose(file) != 0 && ok)
        ok = fail();
    if (ok && ::rename(beside.c_str(), place.c_str()) != 0)
        ok = fail();
    if (!ok)
        ::unlink(beside.c_str());
    if (lock >= 0)
        ::close(lock);
    return ok;
}

void discard(std::FILE* file, const std::string& beside)
{
    ::unlink(beside.c_str()); // while it is still locked
    std::fclose(file);
}

bool seek(std::FILE* file, std::uint64_t position)
{
    return ::fseeko(file, static_cast<off_t>(position), SEEK_SET) == 0;
}

bool removeFile(const std::string& native)
{
    std::uint64_t bytes = 0;
    const Kind kind = kindOf(native, bytes);
    if (kind == Kind::None)
        return false;
    if (kind != Kind::File)
        return refuse(ERROR_ACCESS_DENIED);
    return ::unlink(native.c_str()) == 0 || fail();
}

bool renameEntry(std::string_view from, std::string_view to)
{
    PathParts wanted;
    const std::string source = nativePath(from);
    if (source.empty())
        return false;
    if (!splitPath(to, wanted) || wanted.names.empty())
        return refuse(ERROR_INVALID_NAME);
    if (!isThere(source))
        return fail();
    const std::string target = locate(wanted);
    if (target != source)
        return renameWithoutReplacing(source, target);
    // The same entry: only its case may change.
    const std::string respelt = folderOf(target) + std::string(wanted.names.back());
    if (respelt == source)
        return refuse(ERROR_ALREADY_EXISTS);
    return ::rename(source.c_str(), respelt.c_str()) == 0 || fail();
}

} // namespace kez::files::system
