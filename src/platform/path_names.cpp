// SPDX-License-Identifier: MIT
#include "platform/path_names.h"

#include "platform/ascii_letters.h"
#include "platform/files.h"

#include <algorithm>

namespace kez::files {

namespace {

constexpr std::size_t longestName = 255;
constexpr std::string_view besideMark = ".~new";

constexpr bool isSeparator(char c)
{
    return c == '\\' || c == '/';
}

constexpr bool isLetter(char c)
{
    return lowerCase(c) >= 'a' && lowerCase(c) <= 'z';
}

bool isRefused(char c)
{
    constexpr std::string_view refused = "<>:\"/\\|?*";
    return static_cast<unsigned char>(c) < ' ' || refused.find(c) != refused.npos;
}

// COM and LPT with a digit from 1 to 9, or with a raised 1, 2 or 3 (Latin-1 or UTF-8).
bool isPortNumber(std::string_view number)
{
    constexpr std::string_view raised[]
        = { "\xB9", "\xB2", "\xB3", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3" };
    return (number.size() == 1 && number[0] >= '1' && number[0] <= '9')
        || std::ranges::find(raised, number) != std::end(raised);
}

// A device keeps its name whatever extension or spaces follow it.
bool isDevice(std::string_view name)
{
    std::string_view base = name.substr(0, name.find('.'));
    while (base.ends_with(' '))
        base.remove_suffix(1);
    for (const std::string_view device : { "con", "prn", "aux", "nul", "conin$", "conout$" })
        if (sameName(base, device))
            return true;
    const std::string_view port = base.substr(0, 3);
    return (sameName(port, "com") || sameName(port, "lpt"))
        && isPortNumber(base.substr(port.size()));
}

// Takes the root off the path.
std::string takeRoot(std::string_view& path)
{
    std::string root;
    if (path.size() >= 2 && isLetter(path[0]) && path[1] == ':') {
        root = path.substr(0, 2);
        path.remove_prefix(2);
    } else if (path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1])) {
        root = "\\"; // and the second one below
    }
    if (!path.empty() && isSeparator(path[0]))
        root += '\\';
    return root;
}

} // namespace

bool sameName(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return lowerCase(c); };
    return std::ranges::equal(a, b, {}, lower, lower);
}

bool hasExtension(std::string_view name, std::string_view extension)
{
    if (extension.empty())
        return true;
    if (name.size() <= extension.size())
        return false;
    const std::string_view end = name.substr(name.size() - extension.size() - 1);
    return end[0] == '.' && sameName(end.substr(1), extension);
}

std::string besideName(std::string_view name, int attempt)
{
    // A name of full length is cut to make room for the mark.
    constexpr std::size_t kept = longestName - besideMark.size() - 1;
    return std::string(name.substr(0, kept)) + std::string(besideMark) + std::to_string(attempt);
}

bool isBesideName(std::string_view name)
{
    constexpr std::size_t tail = besideMark.size() + 1;
    return name.size() > tail && name.substr(name.size() - tail, besideMark.size()) == besideMark;
}

bool isValidName(std::string_view name)
{
    return !name.empty() && name.size() <= longestName && name.back() != '.' && name.back() != ' '
        && std::ranges::none_of(name, isRefused) && !isDevice(name);
}

bool splitPath(std::string_view path, PathParts& parts)
{
    if (path.empty())
        return false;
    parts.root = takeRoot(path);
    parts.endsInSeparator = !path.empty() && isSeparator(path.back());
    while (!path.empty()) {
        const auto end = std::ranges::find_if(path, isSeparator);
        const std::string_view name = path.substr(0, static_cast<std::size_t>(end - path.begin()));
        path.remove_prefix(std::min(name.size() + 1, path.size()));
        if (name.empty())
            continue; // doubled separators count as one
        if (name != "." && name != ".." && !isValidName(name))
            return false;
        parts.names.push_back(name);
    }
    return true;
}

} // namespace kez::files
