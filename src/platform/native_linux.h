// SPDX-License-Identifier: MIT
/// Paths and errors of Linux in our terms, for this folder's Linux sources only.
#pragma once

#include "platform/path_names.h"
#include "platform/refuse.h"

#include <memory>
#include <string>

#include <dirent.h>

namespace kez::files::native {

bool fail(); ///< Refuses for what `errno` says.

/// The path as the file system spells it, as far as it exists; exact spellings go first.
[[nodiscard]] std::string locate(const PathParts& parts);

[[nodiscard]] bool isThere(const std::string& native); ///< Anything of this name, links too.

/// Everything up to the last slash, with it; empty for a bare name.
[[nodiscard]] std::string folderOf(const std::string& native);

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};

using Directory = std::unique_ptr<DIR, CloseDirectory>;

[[nodiscard]] Directory openDirectory(const std::string& native); ///< Empty: the current one.

} // namespace kez::files::native
