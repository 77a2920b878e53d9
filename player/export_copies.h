// SPDX-License-Identifier: MIT
/// Exports where a person looks for pictures: what a run wrote into the store's folder is copied to
/// a folder of theirs.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace kez::player {

class ExportCopies {
public:
    /// `from` is the store's folder of exports. Without a folder to copy them to, nothing happens.
    ExportCopies(std::string from, std::string to);

    void runStarts(); ///< Takes note of what is there already.

    /// Copies what has been written since. A file of theirs is never replaced: a copy takes the
    /// next free name, such as "Image  1 (2).JPG", and is left out where its like is there. A line
    /// for a person on what was copied and what could not be, or nothing.
    [[nodiscard]] std::string runEnds() const;

private:
    struct Stamp {
        std::uintmax_t size;
        std::filesystem::file_time_type time;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    using Stamps = std::map<std::string, Stamp>;
    [[nodiscard]] Stamps stamps() const;

    std::string from_;
    std::string to_;
    Stamps before_;
};

} // namespace kez::player
