// SPDX-License-Identifier: MIT
/// Every file access of the project. One set of rules on every system:
///
/// - A path is bytes with backslashes (slashes serve as well) and ignores case: on a file system
///   that heeds case, each part of the path is matched exactly first and without case next.
/// - A name that Windows refuses is refused everywhere: `< > : " / \ | ? *`, control characters, a
///   trailing dot or space, device names (CON, NUL, COM1 …), with or without an extension. (A drive
///   letter or a leading separator in front of a whole path is not a name and is allowed.)
/// - Renaming onto an existing name fails.
/// - A file that is replaced is written beside and renamed over: whatever happens, the old file or
///   the new one is there, whole. (The bytes are on the disk before the name is: not even a pulled
///   plug leaves half a file. A link is replaced, not followed.)
/// - Only regular files are read or replaced: no devices, no pipes.
///
/// Failures return false, an empty result or 0 and set the system's last error (`GetLastError`).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kez::files {

using Bytes = std::vector<std::uint8_t>;

/// Whose rules a path follows: the ones above, or the system's own, for files that a person keeps
/// elsewhere and names as the system allows. Those are only read.
enum class Naming { Ours, TheSystems };

/// No file of ours is larger; a larger one is refused rather than read into memory.
constexpr std::uint64_t largestRead = 1ull << 30;

[[nodiscard]] bool isValidName(std::string_view name); ///< One path component.
[[nodiscard]] bool exists(std::string_view path); ///< A regular file.
[[nodiscard]] bool isDirectory(std::string_view path, Naming naming = Naming::Ours);
[[nodiscard]] std::uint64_t size(std::string_view path); ///< 0 when there is no such file.

/// The whole file. Empty when it cannot be opened, is no regular file, is larger than `limit` or
/// ends early.
[[nodiscard]] std::optional<Bytes> read(std::string_view path, std::uint64_t limit = largestRead);

/// The whole file as text, without the mark that some editors put before UTF-8.
[[nodiscard]] std::optional<std::string> readText(std::string_view path);

/// Exactly `into.size()` bytes from `offset` on; false when the file has fewer.
[[nodiscard]] bool readAt(
    std::string_view path, std::uint64_t offset, std::span<std::uint8_t> into);

/// Creates or replaces the file, whole or not at all.
[[nodiscard]] bool write(std::string_view path, std::span<const std::uint8_t> bytes);

[[nodiscard]] bool copy(std::string_view from, std::string_view to); ///< Replaces, as `write`.
[[nodiscard]] bool remove(std::string_view path); ///< A regular file.
[[nodiscard]] bool rename(
    std::string_view from, std::string_view to); ///< Fails on an existing name.
[[nodiscard]] bool createDirectory(std::string_view path); ///< True also when it exists already.

struct Entry {
    std::string name; ///< As the file system spells it.
    std::string
        shortName; ///< The 8.3 name where the file system keeps one and it differs; or empty.
};

/// The regular files of a directory, in the order in which the system lists them, read once. Only
/// names that end in `extension` (without the dot, case ignored; empty: all names); under our own
/// rules no names that they refuse, and no file that is still being written.
[[nodiscard]] std::vector<Entry> list(
    std::string_view directory, std::string_view extension = {}, Naming naming = Naming::Ours);

/// The path in the system's own form, existing parts spelt as the file system has them: for
/// libraries that open files themselves.
[[nodiscard]] std::string nativePath(std::string_view path);

/// A file opened for reading in pieces. Closed by the destructor.
class Reader {
public:
    explicit Reader(std::string_view path, Naming naming = Naming::Ours);
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    explicit operator bool() const { return file_ != nullptr; }

    [[nodiscard]] std::uint64_t size() const { return size_; }

    [[nodiscard]] std::uint64_t position() const { return position_; }

    /// Reads as much as there is, up to the span's size; returns the bytes read.
    std::size_t read(std::span<std::uint8_t> into);
    bool seek(std::uint64_t position); ///< False past the end.

private:
    std::FILE* file_ = nullptr;
    std::uint64_t size_ = 0;
    std::uint64_t position_ = 0;
};

/// A file written in pieces beside its place; `commit` puts it there. Without a commit that
/// succeeded nothing changes on disk.
class Writer {
public:
    explicit Writer(std::string_view path);
    ~Writer(); ///< Discards what was not committed.
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    explicit operator bool() const { return file_ != nullptr; } ///< The file could be created.

    bool write(std::span<const std::uint8_t> bytes); ///< Once false, always false.
    [[nodiscard]] bool commit();

private:
    std::FILE* file_ = nullptr;
    std::string place_;
    std::string beside_;
    bool failed_ = false;
};

/// For tests: makes operations fail as a broken or full disk would. Counted from the moment the
/// object is built; reset when it is destroyed. A negative number means never.
class Fault {
public:
    struct Plan {
        int failWriteNumber = -1; ///< 0: the next write of bytes fails, 1: the one after it, …
        int failCommitNumber = -1; ///< The same for putting a written file into its place.
        std::int64_t roomBytes = -1; ///< The disk is full after this many more bytes.
        bool renamesFail = false;
        bool removesFail = false;
    };

    explicit Fault(const Plan& plan);
    ~Fault();
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;
};

} // namespace kez::files
