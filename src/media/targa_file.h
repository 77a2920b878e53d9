// SPDX-License-Identifier: MIT
/// Targa files, the form in which every photograph is kept. Reads the common variants
/// (colour-mapped, true-colour, grey; plain or run-length; 1 to 32 bits) into one form and writes
/// exactly that form: 24-bit pixels blue, green, red; rows without gaps; the first row is the
/// bottom row.
#pragma once

#include "core/string.h"
#include "media/targa_decoder.h"
#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kez {

class TargaFile {
public:
    explicit TargaFile(const char* fileName); ///< Keeps a copy of the name; null for none.
    ~TargaFile() = default;
    TargaFile(const TargaFile&) = delete;
    TargaFile& operator=(const TargaFile&) = delete;

    /// Reads the file. The pixels stay this object's until its next read. Null (and a diagnostic
    /// naming the file) on failure; the file then stays open, and the sizes may be stored all the
    /// same. Either pointer may be null.
    const std::uint8_t* read(int* width, int* height);

    /// Writes width × height pixels to `path`, whole or not at all, and counts the change of the
    /// file's size in `diskUsed`. Non-null on success; null and a diagnostic on failure.
    const void* write(
        const char* path, bool runLength, int width, int height, const std::uint8_t* pixels);

    void close() { file_.reset(); } ///< Closes the open file, if any.

    /// Why the last read or write failed, as it went to the debugger output; at most 1023 bytes.
    [[nodiscard]] const String& lastMessage() const { return lastMessage_; }

private:
    std::nullptr_t fail(std::string_view path, std::string_view message);

    String fileName_;
    String lastMessage_;
    std::optional<files::Reader> file_;
    TargaPicture picture_;
};

} // namespace kez
