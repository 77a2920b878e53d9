// SPDX-License-Identifier: MIT
#include "platform/files.h"
#include "platform/files_system.h"
#include "platform/path_names.h"
#include "platform/refuse.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

namespace kez::files {

namespace {

constexpr int besideAttempts = 10;

std::string folderOf(const std::string& native)
{
    const std::size_t separator = native.find_last_of("\\:");
    return separator == std::string::npos ? std::string() : native.substr(0, separator + 1);
}

std::string fullPath(const std::string& native)
{
    char full[4 * MAX_PATH];
    const DWORD length = GetFullPathNameA(native.c_str(), sizeof full, full, nullptr);
    return length < sizeof full ? std::string(full, length) : native;
}

// The C library's errors for what it opens; the system has set the last error already.
std::FILE* openStream(const std::string& native, int flags, int sharing, const char* mode)
{
    const int file = ::_sopen(native.c_str(), flags, sharing, _S_IREAD | _S_IWRITE);
    return file < 0 ? nullptr : ::_fdopen(file, mode);
}

bool isListed(const WIN32_FIND_DATAA& found, std::string_view extension, Naming naming)
{
    constexpr DWORD others = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;
    const std::string_view name = found.cFileName;
    const bool refused = naming == Naming::Ours && (!isValidName(name) || isBesideName(name));
    return (found.dwFileAttributes & others) == 0 && hasExtension(name, extension) && !refused;
}

} // namespace

std::string nativePath(std::string_view path)
{
    PathParts parts;
    if (!splitPath(path, parts)) {
        refuse(ERROR_INVALID_NAME);
        return {};
    }
    std::string native = parts.root;
    for (const std::string_view name : parts.names)
        native.append(name).append(1, '\\');
    if (!parts.names.empty() && !parts.endsInSeparator)
        native.pop_back();
    return native;
}

bool createDirectory(std::string_view path)
{
    const std::string native = nativePath(path);
    if (native.empty() || CreateDirectoryA(native.c_str(), nullptr))
        return !native.empty();
    if (GetLastError() == ERROR_ALREADY_EXISTS && isDirectory(path))
        return true;
    return false;
}

std::vector<Entry> list(std::string_view directory, std::string_view extension, Naming naming)
{
    std::vector<Entry> entries;
    const std::string native
        = naming == Naming::Ours ? nativePath(directory) : std::string(directory);
    if (native.empty())
        return entries;
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((native + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return entries;
    do {
        if (isListed(found, extension, naming))
            entries.push_back({ found.cFileName, found.cAlternateFileName });
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return entries;
}

namespace system {

namespace {

bool mayReplace(const std::string& place)
{
    const DWORD attributes = GetFileAttributesA(place.c_str());
    constexpr DWORD kept
        = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE | FILE_ATTRIBUTE_READONLY;
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & kept) == 0)
        return true;
    return refuse(ERROR_ACCESS_DENIED);
}

} // namespace

Kind kindOf(const std::string& native, std::uint64_t& size)
{
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExA(native.c_str(), GetFileExInfoStandard, &data))
        return Kind::None;
    size = (std::uint64_t { data.nFileSizeHigh } << 32) | data.nFileSizeLow;
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return Kind::Directory;
    return (data.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0 ? Kind::Other : Kind::File;
}

std::FILE* openRegular(const std::string& native, std::uint64_t& size)
{
    const Kind kind = kindOf(native, size);
    if (kind == Kind::File)
        return openStream(native, _O_RDONLY | _O_BINARY, _SH_DENYNO, "rb");
    if (kind != Kind::None)
        refuse(ERROR_ACCESS_DENIED);
    return nullptr;
}

std::FILE* openBeside(const std::string& place, std::string& beside)
{
    const std::string name = place.substr(folderOf(place).size());
    if (!isValidName(name)) { // the path ends in a separator
        refuse(ERROR_INVALID_NAME);
        return nullptr;
    }
    if (!mayReplace(place))
        return nullptr;
    for (int attempt = 0; attempt < besideAttempts; ++attempt) {
        beside = folderOf(place) + besideName(name, attempt);
        constexpr int flags = _O_RDWR | _O_CREAT | _O_TRUNC | _O_BINARY;
        std::FILE* const file = openStream(beside, flags, _SH_DENYRW, "wb");
        if (file != nullptr || GetLastError() != ERROR_SHARING_VIOLATION)
            return file;
    }
    return nullptr;
}

bool putInPlace(std::FILE* file, const std::string& beside, const std::string& place)
{
    bool ok = std::fflush(file) == 0 && ::_commit(::_fileno(file)) == 0;
    ok = std::fclose(file) == 0 && ok;
    constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (ok && MoveFileExA(beside.c_str(), place.c_str(), how))
        return true;
    const DWORD error = GetLastError();
    DeleteFileA(beside.c_str());
    return refuse(error);
}

void discard(std::FILE* file, const std::string& beside)
{
    const DWORD error = GetLastError();
    std::fclose(file);
    DeleteFileA(beside.c_str());
    SetLastError(error);
}

bool seek(std::FILE* file, std::uint64_t position)
{
    return ::_fseeki64(file, static_cast<std::int64_t>(position), SEEK_SET) == 0;
}

bool removeFile(const std::string& native)
{
    return DeleteFileA(native.c_str()) != FALSE;
}

bool renameEntry(std::string_view from, std::string_view to)
{
    const std::string source = nativePath(from);
    const std::string target = nativePath(to);
    if (source.empty() || target.empty())
        return false;
    // The system takes a rename to the very same name for a success.
    if (fullPath(source) == fullPath(target)
        && GetFileAttributesA(source.c_str()) != INVALID_FILE_ATTRIBUTES)
        return refuse(ERROR_ALREADY_EXISTS);
    return MoveFileExA(source.c_str(), target.c_str(), 0) != FALSE;
}

} // namespace system

} // namespace kez::files
