// SPDX-License-Identifier: MIT
#include "captions.h"

#include "platform/files.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace kez::player {

namespace {

// A child reads slowly, and a line stays a little after it has been said.
constexpr DWORD readingMsPerCharacter = 80;
constexpr DWORD leastMs = 2500;
constexpr DWORD lingerMs = 800;

} // namespace

void Captions::read(const std::string& file)
{
    std::istringstream input(files::readText(file).value_or(""));
    for (std::string line; std::getline(input, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        const std::size_t tab = line.find('\t');
        int clip = 0;
        if (tab == std::string::npos
            || std::from_chars(line.data(), line.data() + tab, clip).ptr != line.data() + tab)
            continue;
        lines_[clip] = line.substr(tab + 1);
    }
}

void Captions::say(int clip, DWORD durationMs, DWORD now)
{
    const auto line = lines_.find(clip);
    text_ = line != lines_.end() ? line->second : std::string();
    started_ = now;
    const auto readingMs = static_cast<DWORD>(text_.size()) * readingMsPerCharacter;
    shownMs_ = std::max(durationMs != 0 ? durationMs + lingerMs : readingMs, leastMs);
}

std::string Captions::text(DWORD now) const
{
    return now - started_ < shownMs_ ? text_ : std::string();
}

} // namespace kez::player
