// SPDX-License-Identifier: MIT
#include "archive_packer.h"

#include "manifest.h"
#include "media/archive_block.h"
#include "platform/files.h"
#include "png_file.h"
#include "progress.h"
#include "quantiser.h"
#include "sheet.h"
#include "user_error.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace kez::tools {

namespace {

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

    std::vector<std::string> remarks;

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

    [[nodiscard]] Records sprite(const ManifestItem& item)
    {
        PngPicture png = readPicture(item);
        SpritePicture picture { .name = item.name, .depth = item.depth };
        const bool isSheet = png.width == sheetWidth && png.height == sheetHeight;
        if (isSheet && !item.keep) {
            const Box box = visibleBox(png);
            if (box.right == 0)
                fail(item, item.file + " is transparent all over; draw something on it");
            png = crop(png, box);
            picture.x = box.left - centred(png.width, sheetWidth);
            picture.y = box.top - centred(png.height, sheetHeight);
        }
        if (item.colours != 0)
            reduce(item, png.pixels);
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
                      "use form=auto, or colours=256");
        return records;
    }

    void reduce(const ManifestItem& item, std::vector<std::uint32_t>& pixels)
    {
        const ColourLoss loss = reduceColours(pixels, item.colours);
        char text[128];
        std::snprintf(text, sizeof text,
            ": %zu of %zu colours are left; they are wrong by %.1f of 255 on average, %d at most",
            loss.coloursAfter, loss.coloursBefore, loss.mean, loss.largest);
        remarks.push_back(item.name + text);
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

} // namespace

PackedFolder packFolder(const std::string& folder, const std::string& manifestFile)
{
    const std::string manifest = folder + "/" + manifestFile;
    const auto text = files::readText(manifest);
    if (!text)
        throw UserError(manifest
            + ": there is no such manifest; write one with a line \"sprite NAME\" for each "
              "picture");
    const std::vector<ManifestItem> items = parseManifest(manifest, *text);
    if (items.empty())
        throw UserError(manifest + ": it names no sprite; write a line \"sprite NAME\" for each");
    Packer packer(folder, manifest);
    Progress progress("packing " + folder);
    PackedFolder packed;
    packed.items = items.size();
    for (std::size_t i = 0; i < items.size(); ++i) {
        for (auto& record : packer.pack(items[i]))
            packed.records.push_back(std::move(record));
        progress.at(i + 1, items.size());
    }
    packed.remarks = std::move(packer.remarks);
    return packed;
}

} // namespace kez::tools
