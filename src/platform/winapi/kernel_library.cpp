// SPDX-License-Identifier: MIT
#include "winbase.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

namespace {

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string fullPath(const char* path)
{
    char full[PATH_MAX];
    return ::realpath(path, full) == nullptr ? std::string(path) : std::string(full);
}

std::string folderOfThisLibrary()
{
    Dl_info info {};
    const bool known = ::dladdr(reinterpret_cast<void*>(&LoadLibraryA), &info) != 0;
    return known ? folderOf(fullPath(info.dli_fname)) : std::string();
}

bool endsWithoutCase(std::string_view text, std::string_view end)
{
    return text.size() >= end.size()
        && std::equal(end.begin(), end.end(), text.end() - static_cast<std::ptrdiff_t>(end.size()),
            [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

// "qxdcdll" and "qxdcdll.dll" are libqxdcdll.so here.
std::string libraryFile(std::string_view name)
{
    if (endsWithoutCase(name, ".so"))
        return std::string(name);
    if (endsWithoutCase(name, ".dll"))
        name.remove_suffix(4);
    return "lib" + std::string(name) + ".so";
}

// Why a library that is there does not load is worth telling; that there is none is not.
void* open(const std::string& path, int mode)
{
    void* library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | mode);
    if (library != nullptr)
        return library;
    const bool there = path.find('/') != std::string::npos && ::access(path.c_str(), F_OK) == 0;
    SetLastError(there ? ERROR_BAD_EXE_FORMAT : ERROR_MOD_NOT_FOUND);
    if (there && (mode & RTLD_NOLOAD) == 0)
        OutputDebugStringA((std::string(::dlerror()) + "\n").c_str());
    return nullptr;
}

void* find(std::string_view name, int mode)
{
    if (name.find_first_of("/\\") != std::string_view::npos) {
        std::string path(name);
        std::ranges::replace(path, '\\', '/');
        return open(path, mode);
    }
    const std::string file = libraryFile(name);
    for (const std::string& folder :
        { folderOf(fullPath("/proc/self/exe")), folderOfThisLibrary() })
        if (::access((folder + file).c_str(), F_OK) == 0)
            return open(folder + file, mode);
    return open(file, mode);
}

HMODULE refuse(DWORD code)
{
    SetLastError(code);
    return nullptr;
}

} // namespace

HMODULE LoadLibraryA(LPCSTR name)
{
    if (name == nullptr || *name == '\0')
        return refuse(ERROR_INVALID_PARAMETER);
    return static_cast<HMODULE>(find(name, 0));
}

BOOL FreeLibrary(HMODULE library)
{
    if (library != nullptr && ::dlclose(library) == 0)
        return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

FARPROC GetProcAddress(HMODULE library, LPCSTR name)
{
    void* const handle = library == nullptr ? RTLD_DEFAULT : library;
    void* const address = name == nullptr ? nullptr : ::dlsym(handle, name);
    if (address == nullptr)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(address);
}

HMODULE GetModuleHandleA(LPCSTR name)
{
    // The handle is lent: the reference that dlopen counted is given back at once.
    void* library = name == nullptr ? ::dlopen(nullptr, RTLD_NOW) : find(name, RTLD_NOLOAD);
    if (library == nullptr)
        return refuse(ERROR_MOD_NOT_FOUND);
    ::dlclose(library);
    return static_cast<HMODULE>(library);
}

BOOL GetModuleHandleExA(DWORD flags, LPCSTR address, HMODULE* library)
{
    const bool counts = (flags & GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT) == 0;
    if ((flags & ~GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT)
            != GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS
        || library == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    Dl_info info {};
    link_map* map = nullptr;
    if (::dladdr1(address, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) == 0) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return FALSE;
    }
    // The program's own map has an empty name.
    const char* const name = map->l_name[0] == '\0' ? nullptr : map->l_name;
    void* const found = ::dlopen(name, RTLD_NOW | RTLD_NOLOAD);
    *library = static_cast<HMODULE>(found);
    if (!counts && found != nullptr)
        ::dlclose(found);
    return found != nullptr ? TRUE : FALSE;
}

DWORD GetModuleFileNameA(HMODULE library, LPSTR path, DWORD pathSize)
{
    link_map* map = nullptr;
    if (library != nullptr && ::dlinfo(library, RTLD_DI_LINKMAP, &map) != 0) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    // The program's own map has an empty name.
    const bool isProgram = map == nullptr || map->l_name[0] == '\0';
    const std::string full = fullPath(isProgram ? "/proc/self/exe" : map->l_name);
    if (path == nullptr || pathSize == 0) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    const auto copied = std::min<std::size_t>(full.size(), pathSize - 1);
    std::memcpy(path, full.data(), copied);
    path[copied] = '\0';
    if (copied == full.size())
        return static_cast<DWORD>(copied);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return pathSize;
}
