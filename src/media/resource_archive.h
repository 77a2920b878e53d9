// SPDX-License-Identifier: MIT
/// The archive of the module's resources: named records read whole into memory and used in place. A
/// record that it lacks is sought as a loose file of the same layout, in the archive's directory,
/// the extra directory and the current one.
///
/// A record: u32 length of the whole record, a zero-terminated name (with its extension, at most 39
/// characters) at offset 4, then the type's own fields. Little-endian. Records lie back to back; a
/// length of 0, or the end of the data, ends them. A file that begins with "DIF1" is compressed
/// (see dif1.h), any other is raw.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kez {

class ResourceArchive {
public:
    /// `path` may be null or empty: the archive is then empty. The extra directory may be null.
    ResourceArchive(const char* path, const char* extraDirectory);
    ~ResourceArchive();
    ResourceArchive(const ResourceArchive&) = delete;
    ResourceArchive& operator=(const ResourceArchive&) = delete;

    void open(const char* path); ///< Releases first. A file that cannot be read leaves it empty.
    void release(); ///< Frees every record: no pointer from `find` is valid any more.

    /// The record of that name ('A' to 'Z' equal 'a' to 'z'), or null; the caller reports. Valid
    /// until `release`. The memory is writable and shared by all users of the name; the archive
    /// owns it. The record's length field has been checked against the data that hold it.
    std::uint8_t* find(const char* name);

    /// Reads one loose record file and adds it under the name stored in it. Null on failure.
    std::uint8_t* addFile(const char* path);

    [[nodiscard]] int count() const { return static_cast<int>(entries_.size()); }

private:
    struct Entry {
        std::uint8_t* record;
        std::string name; ///< Normalised.
        std::unique_ptr<std::uint8_t[]> owned; ///< The block of an added record; else null.
    };

    std::vector<Entry> entries_;
    std::unique_ptr<std::uint8_t[]> mainBlock_;
    std::size_t mainSize_ = 0;
    std::string archiveDirectory_;
    std::string extraDirectory_;
};

/// The one archive of the module: made by `Kez::initialize`, destroyed by `Kez::release`; null
/// before and after.
[[nodiscard]] ResourceArchive* archive();
void createArchive();
void destroyArchive();

} // namespace kez
