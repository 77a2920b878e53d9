// SPDX-License-Identifier: MIT
/// Which pictures of a folder are new: every JPEG and PNG file that is there at first, by name, and
/// then each that comes, once it has stopped growing. One that could not be read is offered again
/// when its size has changed; one that went and came back is new.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kez::driver {

class FolderWatch {
public:
    explicit FolderWatch(std::string directory);

    /// Looks into the folder, but not more often than once a second.
    void look(std::uint32_t now);

    /// The path of the next new picture, by name; empty when there is none. It is offered until it
    /// is settled.
    [[nodiscard]] std::optional<std::string> next() const;
    void settle(bool wasRead);

private:
    enum class State { Growing, New, Taken, Skipped };

    struct File {
        State state = State::New;
        std::uint64_t size = 0;
    };

    [[nodiscard]] std::string pathOf(const std::string& name) const;
    [[nodiscard]] std::uint64_t sizeOf(const std::string& name) const;
    void meet(const std::string& name, File& file) const;

    std::string directory_;
    std::map<std::string, File> files_;
    std::uint32_t lookedAt_ = 0;
    bool looked_ = false;
};

} // namespace kez::driver
