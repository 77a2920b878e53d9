// SPDX-License-Identifier: MIT
/// kez list: what an archive holds, a record a line.
#include "archive_listing.h"
#include "commands.h"
#include "core/little_endian.h"
#include "counted.h"
#include "sprites/sprite_record.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstring>
#include <memory>

namespace kez::tools {

namespace {

// The type's name where records of this system keep it.
std::string typeOf(const ArchiveRecord& record)
{
    if (record.bytes.size() < offsets::typeName + nameBytes)
        return {};
    const char* name = reinterpret_cast<const char*>(&record.bytes[offsets::typeName]);
    std::string type(name, strnlen(name, nameBytes));
    for (char& character : type) {
        if (character < ' ' || character > '~')
            character = '?';
    }
    return type;
}

const char* modeName(const SpriteView& sprite)
{
    constexpr const char* names[] = { "raw", "short runs", "long runs" };
    const auto mode = static_cast<std::size_t>(sprite.mode());
    return mode < std::size(names) ? names[mode] : "unknown mode";
}

void printRecord(const ArchiveRecord& record)
{
    const std::string type = typeOf(record);
    std::printf("%-24s %-16s %8zu", record.name.c_str(), type.c_str(), record.bytes.size());
    if (type == "Sprite Image") {
        const char* fault = nullptr;
        if (const auto sprite = SpriteView::parse(record.bytes, fault))
            std::printf("  %4d x %-4d %2d bits %-10s %-7s depth %d at %d, %d", sprite->width(),
                sprite->height(), sprite->pixelBits(), modeName(*sprite),
                sprite->hasAlpha() ? "opacity" : "", sprite->depth(), sprite->x(), sprite->y());
        else
            std::printf("  damaged: %s", fault);
    }
    std::printf("\n");
}

void list(const std::string& path)
{
    const OpenArchive archive = openArchive(path);
    std::printf("%-24s %-16s %8s\n", "name", "type", "bytes");
    for (const ArchiveRecord& record : archive.list.records)
        printRecord(record);
    std::printf("%s, %zu bytes\n", counted(archive.list.records.size(), "record").c_str(),
        archive.block.size());
    if (!archive.list.fault.empty())
        throw UserError(path + ": " + archive.list.fault);
}

} // namespace

void addListCommand(CLI::App& app)
{
    const auto path = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("list", "Show what an archive holds");
    command->add_option("archive", *path, "The archive, such as kez.wad")->required();
    command->callback([path] { list(*path); });
}

} // namespace kez::tools
