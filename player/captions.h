// SPDX-License-Identifier: MIT
/// What the guide says, in writing: the lines of the clips, and the one that is said now.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace kez::player {

class Captions {
public:
    /// Reads a file of lines CLIP, tab, TEXT. What is no such line is passed over; without the file
    /// there are no captions.
    void read(const std::string& file);

    [[nodiscard]] bool empty() const { return lines_.empty(); }

    /// A clip has started, or (clip 0) the guide has fallen silent. A clip that cannot be heard (a
    /// duration of 0) stays as long as it takes to read.
    void say(int clip, DWORD durationMs, DWORD now);

    [[nodiscard]] std::string text(DWORD now) const; ///< Empty when nothing is said.

private:
    std::map<int, std::string> lines_;
    std::string text_;
    DWORD started_ = 0;
    DWORD shownMs_ = 0;
};

} // namespace kez::player
