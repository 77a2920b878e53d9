// SPDX-License-Identifier: MIT
#include "export_copies.h"

#include "platform/desktop.h"
#include "platform/files.h"

#include <algorithm>
#include <random>
#include <utility>

namespace kez::player {

namespace {

namespace fs = std::filesystem;

constexpr int mostCopies = 999; // of one name

std::string joined(const std::string& folder, const std::string& name)
{
    return folder + "\\" + name;
}

// "Image  1.JPG" as it is, then "Image  1 (2).JPG" and so on.
std::string nameOfCopy(const std::string& name, int number)
{
    if (number == 1)
        return name;
    const std::size_t dot = std::min(name.rfind('.'), name.size());
    return name.substr(0, dot) + " (" + std::to_string(number) + ")" + name.substr(dot);
}

enum class Outcome { Copied, WasThere, Failed };

// One that no other player chooses, which may copy into the same folder at the same moment.
std::string unusedName()
{
    std::random_device random;
    return "kez-copy-" + std::to_string(random()) + std::to_string(random()) + ".tmp";
}

bool isThereAlready(const std::string& folder, const std::string& name, const files::Bytes& bytes)
{
    for (int number = 1; number <= mostCopies; ++number) {
        const std::string place = joined(folder, nameOfCopy(name, number));
        if (!files::exists(place))
            return false;
        if (files::read(place) == bytes)
            return true;
    }
    return false;
}

// By renaming, which replaces nothing, so that two players never take the same name.
bool takeFreeName(const std::string& written, const std::string& folder, const std::string& name)
{
    for (int number = 1; number <= mostCopies; ++number) {
        const std::string place = joined(folder, nameOfCopy(name, number));
        if (files::rename(written, place))
            return true;
        if (!files::exists(place))
            return false;
    }
    return false;
}

Outcome copyTo(const std::string& folder, const std::string& name, const files::Bytes& bytes)
{
    if (isThereAlready(folder, name, bytes))
        return Outcome::WasThere;
    const std::string written = joined(folder, unusedName());
    if (!files::write(written, bytes))
        return Outcome::Failed;
    if (takeFreeName(written, folder, name))
        return Outcome::Copied;
    static_cast<void>(files::remove(written));
    return Outcome::Failed;
}

void append(std::string& list, const std::string& name)
{
    list += (list.empty() ? "" : ", ") + name;
}

} // namespace

ExportCopies::ExportCopies(std::string from, std::string to)
    : from_(std::move(from))
    , to_(std::move(to))
{
}

void ExportCopies::runStarts()
{
    if (!to_.empty())
        before_ = stamps();
}

std::string ExportCopies::runEnds() const
{
    if (to_.empty())
        return {};
    std::string copied;
    std::string failed;
    for (const auto& [name, stamp] : stamps()) {
        const auto old = before_.find(name);
        if (old != before_.end() && old->second == stamp)
            continue;
        std::error_code ignored; // the copy tells
        fs::create_directories(desktop::pathOf(to_), ignored);
        const auto bytes = files::read(joined(from_, name));
        const Outcome outcome = bytes ? copyTo(to_, name, *bytes) : Outcome::Failed;
        if (outcome != Outcome::WasThere)
            append(outcome == Outcome::Copied ? copied : failed, name);
    }
    std::string text;
    if (!copied.empty())
        text = "Copied to " + to_ + ": " + copied + "\n";
    if (!failed.empty())
        text += to_ + " takes no copy of " + failed + ", which stays in " + from_ + ". "
            + "Name another folder with --pictures DIR.\n";
    return text;
}

ExportCopies::Stamps ExportCopies::stamps() const
{
    Stamps result;
    for (const files::Entry& entry : files::list(from_)) {
        const fs::path file = desktop::pathOf(files::nativePath(joined(from_, entry.name)));
        std::error_code error;
        const Stamp stamp { fs::file_size(file, error), fs::last_write_time(file, error) };
        if (!error)
            result.emplace(entry.name, stamp);
    }
    return result;
}

} // namespace kez::player
