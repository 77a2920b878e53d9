// SPDX-License-Identifier: MIT
/// kez unpack: an archive becomes a folder of pictures with the manifest that packs it again.
#include "archive_listing.h"
#include "archive_packer.h"
#include "commands.h"
#include "counted.h"
#include "manifest.h"
#include "platform/files.h"
#include "png_file.h"
#include "progress.h"
#include "sprite_pixels.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <set>

namespace kez::tools {

namespace {

struct UnpackOptions {
    std::string archive;
    std::string folder;
    bool force = false;
    bool salvage = false;
};

// Files are made beside the folder and put into it when all are there: an archive that turns out
// to be damaged, or a full disk, leaves nothing behind.
class Scratch {
public:
    explicit Scratch(const std::string& folder)
        : folder_(folder)
        , scratch_(folder + ".unpacking")
    {
        if (!files::createDirectory(path()))
            throw UserError(path() + ": the folder cannot be made; is there the right to?");
    }

    ~Scratch()
    {
        std::error_code ignored;
        std::filesystem::remove_all(scratch_, ignored);
    }

    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    [[nodiscard]] std::string path() const { return scratch_.string(); }

    void commit() const
    {
        std::error_code error;
        std::filesystem::create_directories(folder_, error);
        for (const auto& file : std::filesystem::directory_iterator(scratch_)) {
            if (!error)
                std::filesystem::rename(file.path(), folder_ / file.path().filename(), error);
        }
        if (error)
            throw UserError(
                folder_.string() + ": the files cannot be put there (" + error.message() + ")");
    }

private:
    std::filesystem::path folder_;
    std::filesystem::path scratch_;
};

class Unpacker {
public:
    Unpacker(const OpenArchive& archive, std::string folder)
        : records_(archive.list.records)
        , folder_(std::move(folder))
    {
    }

    // Writes the record that `at` stands on, with its palette and plane, and returns its line for
    // the manifest; moves `at` on.
    std::string unpackAt(std::size_t& at)
    {
        const std::string& name = records_[at].name;
        if (recordNamed(records_, name) != &records_[at])
            return leaveOut(at, "the name is there already, and the first is the one that counts");
        if (!isManifestName(name))
            return leaveOut(at, "a manifest cannot hold the name");
        if (auto line = unpackSprite(at))
            return *line;
        return unpackRecord(at);
    }

private:
    std::string leaveOut(std::size_t& at, const char* reason)
    {
        std::fprintf(stderr, "kez: record %zu, \"%s\", is left out: %s\n", at + 1,
            records_[at].name.c_str(), reason);
        return "# record " + std::to_string(++at) + " was left out: " + reason + '\n';
    }

    // Empty when the record is no sprite or packing would not give the very same bytes.
    std::optional<std::string> unpackSprite(std::size_t& at)
    {
        constexpr std::string_view extension = ".sp5";
        const ArchiveRecord& record = records_[at];
        const char* reason = nullptr;
        std::string fault;
        const auto sprite = SpriteView::parse(record.bytes, reason);
        if (!sprite || !record.name.ends_with(extension))
            return std::nullopt;
        auto pixels = spritePixels(records_, record, *sprite, fault);
        if (!pixels)
            return std::nullopt;
        const SpriteForm& form = exactForm(sprite->pixelBits(), sprite->mode());
        SpritePicture picture { record.name.substr(0, record.name.size() - extension.size()),
            sprite->x(), sprite->y(), sprite->depth(), sprite->width(), sprite->height(),
            std::move(*pixels) };
        const auto again = encodeSmallest(picture, form);
        if (again.empty() || !liesAt(at, again))
            return std::nullopt;
        const std::string file = fileNameFor(picture.name, ".png");
        writePng(folder_ + "/" + file, { picture.width, picture.height, picture.pixels });
        at += again.size();
        return formatManifestItem({ .kind = ManifestItem::Kind::Sprite,
                   .name = picture.name,
                   .file = file,
                   .depth = picture.depth,
                   .x = picture.x,
                   .y = picture.y,
                   .form = &form,
                   .keep = true })
            + '\n';
    }

    std::string unpackRecord(std::size_t& at)
    {
        const ArchiveRecord& record = records_[at];
        const std::string file = fileNameFor(record.name, "");
        if (!files::write(folder_ + "/" + file, record.bytes))
            throw UserError(folder_ + "/" + file + ": the file cannot be written");
        ++at;
        return formatManifestItem(
                   { .kind = ManifestItem::Kind::Record, .name = record.name, .file = file })
            + '\n';
    }

    [[nodiscard]] bool liesAt(
        std::size_t at, const std::vector<std::vector<std::uint8_t>>& expected) const
    {
        if (expected.size() > records_.size() - at)
            return false;
        return std::equal(expected.begin(), expected.end(), records_.begin() + std::ptrdiff_t(at),
            [](const auto& bytes, const ArchiveRecord& record) {
                return std::ranges::equal(bytes, record.bytes);
            });
    }

    // The record's own name if a file may have it and none has it yet.
    std::string fileNameFor(const std::string& name, const std::string& extension)
    {
        std::string file = name + extension;
        for (int i = 1; !files::isValidName(file) || file.find('"') != std::string::npos
             || !used_.insert(normalisedRecordName(file)).second;
             ++i)
            file = "record" + std::to_string(i) + extension;
        return file;
    }

    const std::vector<ArchiveRecord>& records_;
    std::string folder_;
    std::set<std::string> used_ { manifestName };
};

void unpack(const UnpackOptions& options)
{
    const OpenArchive archive = openArchive(options.archive);
    if (!archive.list.fault.empty() && !options.salvage)
        throw UserError(
            options.archive + ": " + archive.list.fault + "; --salvage unpacks what can be had");
    if (!archive.list.fault.empty())
        std::fprintf(stderr, "kez: %s: %s; the rest is unpacked\n", options.archive.c_str(),
            archive.list.fault.c_str());
    const std::string manifest = options.folder + "/" + manifestName;
    if (files::exists(manifest) && !options.force)
        throw UserError(manifest + ": the folder is in use; give another one, or --force");
    const Scratch scratch(options.folder);
    Unpacker unpacker(archive, scratch.path());
    Progress progress("unpacking " + options.archive);
    std::string text;
    for (std::size_t at = 0; at < archive.list.records.size();) {
        text += unpacker.unpackAt(at);
        progress.at(at, archive.list.records.size());
    }
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    if (!files::write(scratch.path() + "/" + manifestName, { bytes, text.size() }))
        throw UserError(manifest + ": the file cannot be written");
    scratch.commit();
    std::printf(
        "%s: %s\n", options.folder.c_str(), counted(archive.list.records.size(), "record").c_str());
}

} // namespace

void addUnpackCommand(CLI::App& app)
{
    const auto options = std::make_shared<UnpackOptions>();
    CLI::App* command
        = app.add_subcommand("unpack", "Turn an archive into PNG pictures and a manifest");
    command->add_option("archive", options->archive, "The archive, such as kez.wad")->required();
    command->add_option("folder", options->folder, "The folder to write to")->required();
    command->add_flag("--salvage", options->salvage,
        "Unpack what can be had of a damaged archive rather than refuse it");
    command->add_flag("--force", options->force, "Write into a folder that has a manifest");
    command->callback([options] { unpack(*options); });
}

} // namespace kez::tools
