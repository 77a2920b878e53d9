// SPDX-License-Identifier: MIT
/// A file that objects are written to or read from through one operation, so that writing and
/// reading cannot drift apart.
///
/// A text is stored as its length (four bytes, little-endian) and that many bytes:
///     "Cat"  →  03 00 00 00 43 61 74          ""  →  00 00 00 00
#pragma once

#include "core/string.h"

#include <cstddef>
#include <cstdio>

namespace kez {

class DataFile {
public:
    enum class Direction { Writing, Reading };

    /// Opens the file at `path` (the system's own form). A file that does not open leaves the
    /// object closed, and every transfer fails.
    DataFile(const char* path, Direction direction);
    ~DataFile();
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    [[nodiscard]] bool isOpen() const { return file_ != nullptr; }

    /// Writes from, or reads into, `bytes`. True when all `count` bytes moved; a count of 0 moves
    /// nothing and succeeds on an open file and a closed one. A failed write closes the file and
    /// removes it from the disk.
    bool transfer(void* bytes, std::size_t count);

    /// The same for a text. A text read ends at its first zero byte.
    bool transfer(String& text);

private:
    bool transferLength(unsigned& length);

    std::FILE* file_ = nullptr;
    Direction direction_;
    String path_;
};

} // namespace kez
