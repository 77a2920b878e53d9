// SPDX-License-Identifier: MIT
#include "folder_watch.h"

#include "platform/files.h"
#include "platform/path_names.h"

#include <algorithm>
#include <utility>

namespace kez::driver {

namespace {

constexpr std::uint32_t pauseMs = 1000;
constexpr auto asTheSystemNamesThem = files::Naming::TheSystems;

bool isPictureName(std::string_view name)
{
    return files::hasExtension(name, "jpg") || files::hasExtension(name, "jpeg")
        || files::hasExtension(name, "png");
}

} // namespace

FolderWatch::FolderWatch(std::string directory)
    : directory_(std::move(directory))
{
}

std::string FolderWatch::pathOf(const std::string& name) const
{
    return directory_ + "/" + name;
}

std::uint64_t FolderWatch::sizeOf(const std::string& name) const
{
    return files::Reader(pathOf(name), asTheSystemNamesThem).size();
}

void FolderWatch::look(std::uint32_t now)
{
    if (looked_ && now - lookedAt_ < pauseMs)
        return;
    std::map<std::string, File> found;
    for (const files::Entry& entry : files::list(directory_, {}, asTheSystemNamesThem)) {
        if (!isPictureName(entry.name))
            continue;
        File file;
        meet(entry.name, file);
        found.emplace(entry.name, file);
    }
    files_ = std::move(found);
    lookedAt_ = now;
    looked_ = true;
}

// What becomes of a file that the folder holds. At the first look all are taken to be complete.
void FolderWatch::meet(const std::string& name, File& file) const
{
    const auto known = files_.find(name);
    if (known == files_.end()) {
        if (looked_)
            file = { State::Growing, sizeOf(name) };
        return;
    }
    file = known->second;
    if (file.state != State::Growing && file.state != State::Skipped)
        return;
    const std::uint64_t size = sizeOf(name);
    if (file.state == State::Growing && size == file.size)
        file.state = State::New;
    else if (size != file.size)
        file = { State::Growing, size };
}

std::optional<std::string> FolderWatch::next() const
{
    const auto found = std::ranges::find(
        files_, State::New, [](const auto& entry) { return entry.second.state; });
    if (found == files_.end())
        return std::nullopt;
    return pathOf(found->first);
}

void FolderWatch::settle(bool wasRead)
{
    for (auto& [name, file] : files_)
        if (file.state == State::New) {
            file = { wasRead ? State::Taken : State::Skipped, wasRead ? 0 : sizeOf(name) };
            return;
        }
}

} // namespace kez::driver
