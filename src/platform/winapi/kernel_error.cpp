// SPDX-License-Identifier: MIT
#include "winbase.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

thread_local DWORD lastError = NO_ERROR;

struct ErrorText {
    DWORD code;
    std::string_view text;
};

constexpr ErrorText errorTexts[] = {
    { ERROR_SUCCESS, "Nothing went wrong." },
    { ERROR_INVALID_FUNCTION, "This is not possible here." },
    { ERROR_FILE_NOT_FOUND, "There is no such file." },
    { ERROR_PATH_NOT_FOUND, "There is no such folder." },
    { ERROR_TOO_MANY_OPEN_FILES, "Too many files are open at once." },
    { ERROR_ACCESS_DENIED, "Access is not allowed." },
    { ERROR_INVALID_HANDLE, "The handle stands for nothing." },
    { ERROR_NOT_ENOUGH_MEMORY, "There is too little memory." },
    { ERROR_OUTOFMEMORY, "There is no memory left for this." },
    { ERROR_WRITE_PROTECT, "The disk is protected against writing." },
    { ERROR_NOT_READY, "The device does not answer." },
    { ERROR_WRITE_FAULT, "Writing to the device failed." },
    { ERROR_READ_FAULT, "Reading from the device failed." },
    { ERROR_GEN_FAILURE, "The device does not work." },
    { ERROR_SHARING_VIOLATION, "Another program uses the file." },
    { ERROR_HANDLE_EOF, "The file ends too early." },
    { ERROR_HANDLE_DISK_FULL, "The disk is full." },
    { ERROR_NOT_SUPPORTED, "The system does not support this." },
    { ERROR_FILE_EXISTS, "The file is there already." },
    { ERROR_INVALID_PARAMETER, "A parameter is wrong." },
    { ERROR_DISK_FULL, "There is not enough room on the disk." },
    { ERROR_INSUFFICIENT_BUFFER, "The memory given for the answer is too small." },
    { ERROR_INVALID_NAME, "Files and folders cannot have this name." },
    { ERROR_MOD_NOT_FOUND, "The library was not found." },
    { ERROR_PROC_NOT_FOUND, "The library has no function of this name." },
    { ERROR_DIR_NOT_EMPTY, "The folder is not empty." },
    { ERROR_BUSY, "What was asked for is in use." },
    { ERROR_ALREADY_EXISTS, "Something of this name is there already." },
    { ERROR_BAD_EXE_FORMAT, "The file is no library that fits this program." },
    { ERROR_FILENAME_EXCED_RANGE, "The name is too long." },
    { ERROR_FILE_TOO_LARGE, "The file is too large." },
    { ERROR_DIRECTORY, "This is no folder." },
    { ERROR_MR_MID_NOT_FOUND, "There is no text for this message." },
    { ERROR_IO_DEVICE, "The device made an error." },
    { ERROR_FILE_CORRUPT, "The file is damaged." },
};

constexpr std::string_view lineEnd = "\r\n";

DWORD refuse(DWORD code)
{
    SetLastError(code);
    return 0;
}

} // namespace

DWORD GetLastError()
{
    return lastError;
}

void SetLastError(DWORD code)
{
    lastError = code;
}

DWORD FormatMessageA(DWORD flags, LPCVOID, DWORD code, DWORD, LPSTR text, DWORD textSize, va_list*)
{
    constexpr DWORD known = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    if ((flags & FORMAT_MESSAGE_FROM_SYSTEM) == 0 || (flags & ~known) != 0 || text == nullptr)
        return refuse(ERROR_INVALID_PARAMETER);
    const auto entry = std::ranges::find(errorTexts, code, &ErrorText::code);
    if (entry == std::end(errorTexts))
        return refuse(ERROR_MR_MID_NOT_FOUND);
    const std::size_t length = entry->text.size() + lineEnd.size();
    if (length >= textSize)
        return refuse(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(text, entry->text.data(), entry->text.size());
    std::memcpy(text + entry->text.size(), lineEnd.data(), lineEnd.size());
    text[length] = '\0';
    return static_cast<DWORD>(length);
}
