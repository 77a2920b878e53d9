// SPDX-License-Identifier: MIT
/// What `files.cpp` asks of each system. Paths here are native: located before, used as they stand.
/// Failures set the last error.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace kez::files::system {

enum class Kind { None, File, Directory, Other };

[[nodiscard]] Kind kindOf(const std::string& native, std::uint64_t& size);

/// Opens a regular file for reading; null for anything else.
[[nodiscard]] std::FILE* openRegular(const std::string& native, std::uint64_t& size);

/// Opens an empty file beside `place`, locked until it is put in place or discarded, and gives its
/// path. One that a crash left behind is used again. Refused where `place` may not be replaced.
[[nodiscard]] std::FILE* openBeside(const std::string& place, std::string& beside);

/// Closes the file, with its bytes on the disk, and renames it over `place`. When that fails the
/// file beside is gone and `place` as it was.
[[nodiscard]] bool putInPlace(std::FILE* file, const std::string& beside, const std::string& place);

void discard(std::FILE* file, const std::string& beside);

[[nodiscard]] bool seek(std::FILE* file, std::uint64_t position);

[[nodiscard]] bool removeFile(const std::string& native);

/// `from` and `to` as the caller wrote them: a rename may change nothing but the case.
[[nodiscard]] bool renameEntry(std::string_view from, std::string_view to);

} // namespace kez::files::system
