// SPDX-License-Identifier: MIT
#include "activity/import_list.h"

#include "activity/picture_names.h"
#include "platform/files.h"

#include <algorithm>
#include <optional>

namespace kez {

namespace {

constexpr int longestBaseName = 8;

std::optional<ImportFile> cutName(const String& fileName)
{
    const int dot = fileName.findLast('.');
    if (dot < 0)
        return std::nullopt;
    return ImportFile { fileName.view().substr(0, static_cast<std::size_t>(dot)),
        fileName.view().substr(static_cast<std::size_t>(dot) + 1) };
}

bool isPicture(const ImportFile& file)
{
    return file.extension.compareIgnoringCase("JPG") == 0
        || file.extension.compareIgnoringCase("BMP") == 0;
}

bool comesBefore(const ImportFile& first, const ImportFile& second)
{
    if (const int order = first.baseName.compareIgnoringCase(second.baseName.view()); order != 0)
        return order < 0;
    if (const int order = first.baseName.compare(second.baseName.view()); order != 0)
        return order < 0;
    return first.extension.compare(second.extension.view()) < 0;
}

} // namespace

void ImportList::scan()
{
    files_.clear();
    for (const files::Entry& entry : files::list(makePath("export", nullptr, nullptr).view())) {
        std::optional<ImportFile> file = cutName(std::string_view(entry.name));
        if (!file || !isPicture(*file))
            continue;
        if (file->baseName.length() > longestBaseName && !entry.shortName.empty())
            if (std::optional<ImportFile> shorter = cutName(std::string_view(entry.shortName)))
                file = std::move(shorter);
        files_.push_back(std::move(*file));
    }
    std::ranges::sort(files_, comesBefore);
}

const ImportFile* ImportList::at(int index) const
{
    return index >= 0 && index < count() ? &files_[static_cast<std::size_t>(index)] : nullptr;
}

int ImportList::find(std::string_view beginning) const
{
    const auto begins = [beginning](const ImportFile& file) {
        return String(file.baseName.view().substr(0, beginning.size()))
                   .compareIgnoringCase(beginning)
            == 0;
    };
    const auto found = std::ranges::find_if(files_, begins);
    return found != files_.end() ? static_cast<int>(found - files_.begin()) : -1;
}

} // namespace kez
