// SPDX-License-Identifier: MIT
/// What files hold and what folders list, as text that a test can compare.
#pragma once

#include "platform/files.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace kez::files {

using Names = std::vector<std::string>;

inline Bytes bytesOf(const std::string& text)
{
    return Bytes(text.begin(), text.end());
}

/// "(none)" where nothing was read.
inline std::string textOf(const std::optional<Bytes>& bytes)
{
    return bytes ? std::string(bytes->begin(), bytes->end()) : "(none)";
}

inline Names namesOf(const std::vector<Entry>& entries)
{
    Names names;
    for (const Entry& entry : entries)
        names.push_back(entry.name);
    std::ranges::sort(names);
    return names;
}

} // namespace kez::files
