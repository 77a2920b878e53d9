// SPDX-License-Identifier: MIT
/// A file that objects are written to or read from through one operation, so that writing and
/// reading cannot drift apart.
///
/// A word is stored in four bytes, little-endian; a double as the low and the high word of its
/// 64 bits; a text as its length (a word) and that many bytes:
///     "Cat"  →  03 00 00 00 43 61 74          ""  →  00 00 00 00
#pragma once

#include "core/string.h"
#include "platform/files.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace kez {

class DataFile {
public:
    enum class Direction { Writing, Reading };

    /// Opens the file at `path`. A file that does not open leaves the object closed, and every
    /// transfer fails.
    DataFile(const char* path, Direction direction);
    ~DataFile(); ///< A file written without a failure takes its place on the disk now.
    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    [[nodiscard]] bool isOpen() const { return writer_.has_value() || reader_.has_value(); }

    [[nodiscard]] Direction direction() const { return direction_; }

    /// Writes from, or reads into, `bytes`. True when all `count` bytes moved; a count of 0 moves
    /// nothing and succeeds on an open file and a closed one. A failed write closes the file, and
    /// nothing of it stays on the disk.
    bool transfer(void* bytes, std::size_t count);

    /// The same for one value; what cannot be read stays as it was. A text read ends at its first
    /// zero byte.
    bool transfer(std::int32_t& word);
    bool transfer(double& number);
    bool transfer(String& text);

private:
    bool readText(String& text);

    Direction direction_;
    std::optional<files::Writer> writer_;
    std::optional<files::Reader> reader_;
};

} // namespace kez
