// SPDX-License-Identifier: MIT
/// kez pack: a folder of pictures and a manifest become an archive.
#include "archive_packer.h"
#include "archive_writer.h"
#include "commands.h"
#include "counted.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace kez::tools {

namespace {

struct PackOptions {
    std::string folder;
    std::string archive;
    std::string manifest = manifestName;
    bool raw = false;
};

void pack(const PackOptions& options)
{
    const PackedFolder packed = packFolder(options.folder, options.manifest);
    const ArchiveSize size = writeArchive(
        options.archive, packed.records, options.raw ? ArchiveForm::Raw : ArchiveForm::Compressed);
    for (const std::string& remark : packed.remarks)
        std::printf("%s\n", remark.c_str());
    std::printf("%s: %s, %s, %zu bytes (%zu unpacked)\n", options.archive.c_str(),
        counted(packed.items, "item").c_str(), counted(packed.records.size(), "record").c_str(),
        size.file, size.unpacked);
}

} // namespace

void addPackCommand(CLI::App& app)
{
    const auto options = std::make_shared<PackOptions>();
    CLI::App* command = app.add_subcommand("pack", "Make an archive of a folder of PNG pictures");
    command->add_option("folder", options->folder, "The folder of the pictures")->required();
    command->add_option("archive", options->archive, "The archive to write, such as kez.wad")
        ->required();
    command->add_option("--manifest", options->manifest, "The list of records, in the folder")
        ->capture_default_str();
    command->add_flag("--raw", options->raw, "Do not compress");
    command->callback([options] { pack(*options); });
}

} // namespace kez::tools
