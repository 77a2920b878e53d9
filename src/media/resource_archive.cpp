// SPDX-License-Identifier: MIT
#include "media/resource_archive.h"

#include "core/diagnostics.h"

#include <memory>
#include <utility>

namespace kez {

namespace {

constexpr std::size_t longestArchiveDirectory = 100;
constexpr std::size_t longestExtraDirectory = 99;
constexpr std::size_t longestLoosePath = 163;

void reportFault(std::string_view path, const std::string& fault)
{
    if (!fault.empty())
        debugPrint("%.*s: %s.", static_cast<int>(path.size()), path.data(), fault.c_str());
}

// Everything up to the last backslash; only the backslash separates.
std::string directoryOf(std::string_view path)
{
    const std::string_view start = path.substr(0, longestArchiveDirectory);
    return std::string(start.substr(0, start.rfind('\\') + 1));
}

std::string asExtraDirectory(std::string_view directory)
{
    std::string result(directory);
    if (!result.empty() && result.back() != '\\')
        result += '\\';
    return result.size() > longestExtraDirectory ? std::string() : result;
}

std::string_view textOf(const char* text)
{
    return text != nullptr ? text : "";
}

std::unique_ptr<ResourceArchive> theArchive;

} // namespace

ResourceArchive::ResourceArchive(const char* path, const char* extraDirectory)
    : archiveDirectory_(directoryOf(textOf(path)))
    , extraDirectory_(asExtraDirectory(textOf(extraDirectory)))
{
    load(textOf(path));
}

void ResourceArchive::open(const char* path)
{
    release();
    archiveDirectory_ = directoryOf(textOf(path));
    load(textOf(path));
}

void ResourceArchive::release()
{
    entries_.clear();
    byName_.clear();
    mainBlock_ = {};
    archiveDirectory_.clear();
}

// Into an archive that holds nothing.
void ResourceArchive::load(std::string_view path)
{
    if (path.empty())
        return;
    ArchiveBlock file = readArchiveBlock(path);
    reportFault(path, file.fault);
    if (!file.block)
        return;
    mainBlock_ = std::move(file.block);
    const ArchiveRecords list = listRecords(mainBlock_.bytes());
    reportFault(path, list.fault);
    entries_.reserve(list.records.size());
    byName_.reserve(list.records.size());
    for (const ArchiveRecord& record : list.records)
        add(record, {});
}

// Of several records with one name the first is found.
std::uint8_t* ResourceArchive::add(const ArchiveRecord& record, ByteBlock owned)
{
    entries_.push_back({ record.bytes.data(), std::move(owned) });
    byName_.try_emplace(normalisedRecordName(record.name), record.bytes.data());
    return record.bytes.data();
}

std::uint8_t* ResourceArchive::find(const char* name)
{
    if (name == nullptr)
        return nullptr;
    const std::string sought = normalisedRecordName(name);
    if (std::uint8_t* record = findLoaded(sought))
        return record;
    if (std::uint8_t* record = addLoose(archiveDirectory_, sought))
        return record;
    if (!extraDirectory_.empty()) {
        if (std::uint8_t* record = addLoose(extraDirectory_, sought))
            return record;
    }
    return addLoose({}, sought);
}

std::uint8_t* ResourceArchive::findLoaded(const std::string& name) const
{
    const auto found = byName_.find(name);
    return found != byName_.end() ? found->second : nullptr;
}

std::uint8_t* ResourceArchive::addLoose(std::string_view directory, std::string_view name)
{
    if (directory.size() + name.size() > longestLoosePath)
        return nullptr;
    return addFile((std::string(directory) += name).c_str());
}

std::uint8_t* ResourceArchive::addFile(const char* path)
{
    if (!mainBlock_) {
        load(textOf(path));
        if (!entries_.empty())
            return entries_.front().record;
        mainBlock_ = {}; // nothing in it can be used
        return nullptr;
    }
    ArchiveBlock file = readArchiveBlock(textOf(path));
    reportFault(textOf(path), file.fault);
    if (!file.block)
        return nullptr;
    const ArchiveRecords list = listRecords(file.block.bytes());
    if (list.records.empty() || list.records.front().bytes.data() != file.block.data()) {
        reportFault(textOf(path), list.fault.empty() ? "it holds no record" : list.fault);
        return nullptr;
    }
    return add(list.records.front(), std::move(file.block));
}

ResourceArchive* archive()
{
    return theArchive.get();
}

void createArchive()
{
    theArchive = std::make_unique<ResourceArchive>(nullptr, nullptr);
}

void destroyArchive()
{
    theArchive.reset();
}

} // namespace kez
