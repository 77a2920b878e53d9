// SPDX-License-Identifier: MIT
/// The archive of the module's resources: named records read whole into memory and used in place. A
/// record that it lacks is sought as a loose file of the same layout, in the archive's directory,
/// the extra directory and the current one.
///
/// Files and records are laid out as archive_block.h says. What is damaged is refused with a
/// diagnostic that names the file; what is missing is the caller's to report.
#pragma once

#include "media/archive_block.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kez {

class ResourceArchive {
public:
    /// `path` may be null or empty: the archive is then empty. The extra directory may be null; one
    /// that does not fit into 99 characters with its trailing backslash is ignored.
    ResourceArchive(const char* path, const char* extraDirectory);
    ~ResourceArchive() = default;
    ResourceArchive(const ResourceArchive&) = delete;
    ResourceArchive& operator=(const ResourceArchive&) = delete;

    void open(const char* path); ///< Releases first. A file that cannot be read leaves it empty.
    void release(); ///< Frees every record: no pointer from `find` is valid any more.

    /// The record of that name ('A' to 'Z' equal 'a' to 'z'), or null; the caller reports. The
    /// first of several with one name. Valid until `release`. The memory is writable and shared by
    /// all users of the name; the archive owns it. The record's length field has been checked
    /// against the data that hold it.
    std::uint8_t* find(const char* name);

    /// Reads one loose record file and adds it under the name stored in it; while there is no
    /// archive, the file becomes the archive, with all its records. Null on failure.
    std::uint8_t* addFile(const char* path);

    [[nodiscard]] int count() const { return static_cast<int>(entries_.size()); }

private:
    struct Entry {
        std::uint8_t* record;
        ByteBlock owned; ///< The block of an added record; else empty.
    };

    void load(std::string_view path);
    std::uint8_t* add(const ArchiveRecord& record, ByteBlock owned);
    [[nodiscard]] std::uint8_t* findLoaded(const std::string& name) const;
    std::uint8_t* addLoose(std::string_view directory, std::string_view name);

    ByteBlock mainBlock_;
    std::vector<Entry> entries_; ///< The main block's records in file order, then the added ones.
    std::unordered_map<std::string, std::uint8_t*> byName_; ///< The first of each normalised name.
    std::string archiveDirectory_; ///< Ends in a backslash, or empty; so does the next.
    std::string extraDirectory_;
};

/// The one archive of the module: made by `Kez::initialize`, destroyed by `Kez::release`; null
/// before and after.
[[nodiscard]] ResourceArchive* archive();
void createArchive();
void destroyArchive();

} // namespace kez
