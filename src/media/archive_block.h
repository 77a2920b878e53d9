// SPDX-License-Identifier: MIT
/// The raw form of an archive or of a loose record file, in memory: records back to back. A file is
/// compressed when it begins with "DIF1" (see dif1.h), and raw otherwise.
///
/// A record: u32 length of the whole record, then a zero-terminated name of at most 39 characters,
/// then the type's own fields. A length of 0, or fewer than five bytes, ends the records.
///
///     0d 00 00 00  61 2e 73 70 35 00  01 02 03     "a.sp5", 13 bytes, 3 of them its own
#pragma once

#include "media/byte_block.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kez {

constexpr std::size_t recordNameOffset = 4;
constexpr std::size_t recordNameBytes = 40; ///< The terminating zero included.

/// The expanded file; an empty block when it cannot be had. `fault` then says why, in words, and
/// stays empty when the file does not open at all.
struct ArchiveBlock {
    ByteBlock block;
    std::string fault;
};

[[nodiscard]] ArchiveBlock readArchiveBlock(std::string_view path);
[[nodiscard]] ArchiveBlock expandArchiveBlock(std::span<const std::uint8_t> file);

struct ArchiveRecord {
    std::span<std::uint8_t> bytes; ///< The whole record, inside the block.
    std::string name; ///< As stored.
};

/// The sound records of a block. `fault` names what is wrong with the block: a length that runs
/// past the data ends the records, a record whose name does not end in time is left out.
struct ArchiveRecords {
    std::vector<ArchiveRecord> records;
    std::string fault;
};

[[nodiscard]] ArchiveRecords listRecords(std::span<std::uint8_t> block);

/// Record names compare in this form: 'A' to 'Z' among the first 40 characters become 'a' to 'z'.
[[nodiscard]] std::string normalisedRecordName(std::string_view name);

} // namespace kez
