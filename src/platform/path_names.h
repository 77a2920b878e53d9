// SPDX-License-Identifier: MIT
/// A path taken apart and checked, the same way on every system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kez::files {

struct PathParts {
    /// What stands before the first name: "", "\", "\\" (a server follows), "C:" or "C:\".
    std::string root;
    std::vector<std::string_view> names; ///< Borrowed; "." and ".." stay as they are.
    bool endsInSeparator = false; ///< Only a directory can be meant.
};

/// False when the path is empty or holds a name that is refused.
[[nodiscard]] bool splitPath(std::string_view path, PathParts& parts);

/// Whether two names are one, the case of ASCII letters ignored.
[[nodiscard]] bool sameName(std::string_view a, std::string_view b);

/// Whether `name` ends in a dot and `extension`, case ignored. An empty extension fits every name.
[[nodiscard]] bool hasExtension(std::string_view name, std::string_view extension);

/// The name of the `attempt`-th file beside `name` while that is being written.
[[nodiscard]] std::string besideName(std::string_view name, int attempt);

/// Whether it is such a name: left behind by a crash, or being written now. Never listed.
[[nodiscard]] bool isBesideName(std::string_view name);

} // namespace kez::files
