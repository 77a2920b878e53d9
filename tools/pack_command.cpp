// SPDX-License-Identifier: MIT
/// kez pack: a folder of pictures and a manifest become an archive.
#include "archive_writer.h"
#include "commands.h"
#include "manifest.h"
#include "media/archive_block.h"
#include "platform/files.h"
#include "png_file.h"
#include "progress.h"
#include "user_error.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>

namespace kez::tools {

namespace {

constexpr int sheetWidth = 640;
constexpr int sheetHeight = 480;

struct PackOptions {
    std::string folder;
    std::string archive;
    std::string manifest = "manifest.txt";
    bool raw = false;
};

using Records = std::vector<std::vector<std::uint8_t>>;

struct Box {
    int left;
    int top;
    int right; // the column behind the box
    int bottom;
};

// The smallest box that holds every pixel with any opacity; empty when there is none.
Box visibleBox(const PngPicture& picture)
{
    Box box { picture.width, picture.height, 0, 0 };
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (picture.pixels[static_cast<std::size_t>(y * picture.width + x)] >> 24 == 0)
                continue;
            box = { std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                y + 1 };
        }
    }
    return box;
}

PngPicture crop(const PngPicture& picture, const Box& box)
{
    PngPicture result { box.right - box.left, box.bottom - box.top, {} };
    for (int y = box.top; y < box.bottom; ++y) {
        const auto row = picture.pixels.begin() + std::ptrdiff_t { y } * picture.width;
        result.pixels.insert(result.pixels.end(), row + box.left, row + box.right);
    }
    return result;
}

class Packer {
public:
    Packer(std::string folder, std::string manifest)
        : folder_(std::move(folder))
        , manifest_(std::move(manifest))
    {
    }

    Records pack(const ManifestItem& item)
    {
        Records records
            = item.kind == ManifestItem::Kind::Record ? finishedRecord(item) : sprite(item);
        for (auto& record : records) {
            for (const ArchiveRecord& each : listRecords(record).records) {
                if (!names_.insert(normalisedRecordName(each.name)).second)
                    fail(item,
                        "the archive has a record \"" + each.name
                            + "\" already; give this one another name");
            }
        }
        return records;
    }

private:
    [[noreturn]] void fail(const ManifestItem& item, const std::string& what) const
    {
        throw UserError(manifest_ + ":" + std::to_string(item.line) + ": " + what);
    }

    [[nodiscard]] std::string pathOf(const ManifestItem& item) const
    {
        const std::string path = folder_ + "/" + item.file;
        if (!files::exists(path))
            fail(item, "there is no file " + path + "; add it or change file=");
        return path;
    }

    [[nodiscard]] Records finishedRecord(const ManifestItem& item) const
    {
        const std::string path = pathOf(item);
        const ArchiveBlock file = readArchiveBlock(path);
        if (!file.block)
            fail(item, path + ": " + (file.fault.empty() ? "it cannot be read" : file.fault));
        files::Bytes bytes(file.block.data(), file.block.data() + file.block.size());
        const ArchiveRecords list = listRecords(bytes);
        if (list.records.size() != 1 || list.records.front().bytes.size() != bytes.size())
            fail(item, path + " is not one whole record; take it from kez unpack");
        const std::string& stored = list.records.front().name;
        if (normalisedRecordName(stored) != normalisedRecordName(item.name))
            fail(item, path + " holds a record called \"" + stored + "\"; use that name");
        return { bytes };
    }

    [[nodiscard]] Records sprite(const ManifestItem& item) const
    {
        PngPicture png = readPicture(item);
        SpritePicture picture { .name = item.name, .depth = item.depth };
        const bool isSheet = png.width == sheetWidth && png.height == sheetHeight;
        if (isSheet && !item.keep) {
            const Box box = visibleBox(png);
            if (box.right == 0)
                fail(item, item.file + " is transparent all over; draw something on it");
            png = crop(png, box);
            // The program draws at left = x + (640 - width) / 2, and rows likewise.
            picture.x = box.left - (sheetWidth - png.width) / 2;
            picture.y = box.top - (sheetHeight - png.height) / 2;
        }
        picture.x = item.x.value_or(picture.x);
        picture.y = item.y.value_or(picture.y);
        picture.width = png.width;
        picture.height = png.height;
        picture.pixels = std::move(png.pixels);
        Records records = encodeSmallest(picture, *item.form);
        if (records.empty())
            fail(item,
                item.file + " does not fit form=" + item.form->name
                    + " (more than 256 colours, or gaps of more than 255 pixels in short runs); "
                      "use form=auto");
        return records;
    }

    [[nodiscard]] PngPicture readPicture(const ManifestItem& item) const
    {
        const std::string path = pathOf(item);
        try {
            PngPicture png = readPng(path);
            for (std::uint32_t& pixel : png.pixels) {
                if (pixel >> 24 == 0)
                    pixel = 0; // one transparent colour, whatever the drawing program left there
            }
            return png;
        } catch (const UserError& error) {
            fail(item, error.what());
        }
    }

    std::string folder_;
    std::string manifest_;
    std::set<std::string> names_; // of the records so far, palettes and planes included
};

void pack(const PackOptions& options)
{
    const std::string manifest = options.folder + "/" + options.manifest;
    const auto text = files::read(manifest);
    if (!text)
        throw UserError(manifest
            + ": there is no such manifest; write one with a line \"sprite NAME\" for each "
              "picture");
    const std::vector<ManifestItem> items
        = parseManifest(manifest, { reinterpret_cast<const char*>(text->data()), text->size() });
    if (items.empty())
        throw UserError(manifest + ": it names no sprite; write a line \"sprite NAME\" for each");
    Packer packer(options.folder, manifest);
    Progress progress("packing " + options.folder);
    Records records;
    std::size_t rawSize = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        for (auto& record : packer.pack(items[i])) {
            rawSize += record.size();
            records.push_back(std::move(record));
        }
        progress.at(i + 1, items.size());
    }
    const std::size_t size = writeArchive(
        options.archive, records, options.raw ? ArchiveForm::Raw : ArchiveForm::Compressed);
    std::printf("%s: %zu items, %zu records, %zu bytes (%zu unpacked)\n", options.archive.c_str(),
        items.size(), records.size(), size, rawSize);
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
