// SPDX-License-Identifier: MIT
#include "media/targa_file.h"

#include "core/flags.h"
#include "media/targa_header.h"
#include "media/targa_packets.h"

#include <windows.h>

#include <array>
#include <cstdio>

namespace kez {

namespace {

constexpr int largestSide = 65535;

class FileSource final : public TargaSource {
public:
    explicit FileSource(files::Reader& file)
        : file_(file)
    {
    }

    [[nodiscard]] std::uint64_t remaining() const override
    {
        return file_.size() - file_.position();
    }

    std::size_t read(std::span<std::uint8_t> into) override { return file_.read(into); }

    bool skip(std::size_t count) override
    {
        return count <= remaining() && (count == 0 || file_.seek(file_.position() + count));
    }

private:
    files::Reader& file_;
};

bool writeHeader(files::Writer& file, bool runLength, int width, int height)
{
    const TargaHeader header {
        .imageType = static_cast<std::uint8_t>(runLength ? 10 : 2),
        .width = static_cast<std::uint16_t>(width),
        .height = static_cast<std::uint16_t>(height),
        .depth = 24,
    };
    std::array<std::uint8_t, TargaHeader::bytes> data {};
    header.serialise(data);
    return file.write(data);
}

// Room for one row's packets, and for as many more as make a piece that a file system takes well: a
// picture of 640 × 480 is mostly one piece, which takes a sixth less time than eight do.
std::size_t packetRoom(std::size_t rowBytes)
{
    constexpr std::size_t pieceBytes = std::size_t { 1024 } * 1024;
    return 2 * rowBytes + pieceBytes;
}

bool writePacked(files::Writer& file, std::span<const std::uint8_t> pixels, std::size_t rowBytes,
    ByteBlock& packets)
{
    std::size_t filled = 0;
    for (std::size_t start = 0; start < pixels.size(); start += rowBytes) {
        if (packets.size() - filled < 2 * rowBytes) {
            if (!file.write(packets.bytes().first(filled)))
                return false;
            filled = 0;
        }
        filled += packTargaRow(pixels.subspan(start, rowBytes), packets.bytes().subspan(filled));
    }
    return file.write(packets.bytes().first(filled));
}

} // namespace

TargaFile::TargaFile(const char* fileName)
    : fileName_(fileName)
{
}

const std::uint8_t* TargaFile::read(int* width, int* height)
{
    file_.emplace(fileName_.view());
    picture_ = {};
    if (!*file_) {
        close();
        return fail(fileName_.view(), "Could not open file");
    }
    FileSource source(*file_);
    const String fault = decodeTarga(source, picture_);
    if (width != nullptr && picture_.width != 0)
        *width = picture_.width;
    if (height != nullptr && picture_.height != 0)
        *height = picture_.height;
    if (!fault.empty())
        return fail(fileName_.view(), fault.view());
    close();
    return picture_.pixels.data();
}

const void* TargaFile::write(
    const char* path, bool runLength, int width, int height, const std::uint8_t* pixels)
{
    const std::string_view place = path != nullptr ? path : "";
    const std::string_view name = fileName_.empty() ? place : fileName_.view();
    const std::uint64_t sizeBefore = files::size(place);
    if (pixels == nullptr)
        return fail(name, "No image available");
    if (width < 1 || height < 1 || width > largestSide || height > largestSide)
        return fail(
            name, String().format("%d by %d pixels do not fit a Targa", width, height).view());
    const std::size_t rowBytes = static_cast<std::size_t>(width) * 3;
    const std::span<const std::uint8_t> picture(
        pixels, rowBytes * static_cast<std::size_t>(height));
    const std::size_t room = runLength ? packetRoom(rowBytes) : 0;
    ByteBlock packets = ByteBlock::unset(room);
    if (!packets)
        return fail(name,
            String()
                .format("Could not allocate buffer of size %u", static_cast<unsigned>(room))
                .view());
    files::Writer file(place);
    if (!file)
        return fail(name, "Could not create file");
    bool whole = writeHeader(file, runLength, width, height);
    whole = whole
        && (runLength ? writePacked(file, picture, rowBytes, packets) : file.write(picture));
    if (!whole || !file.commit())
        return fail(name, "Could not write the whole file");
    diskUsed += static_cast<std::int32_t>(files::size(place) - sizeBefore);
    return pixels;
}

std::nullptr_t TargaFile::fail(std::string_view path, std::string_view message)
{
    char text[1024];
    std::snprintf(text, sizeof text, "File \"%.*s\": %.*s", static_cast<int>(path.size()),
        path.data(), static_cast<int>(message.size()), message.data());
    lastMessage_ = text;
    OutputDebugStringA(text);
    return nullptr;
}

} // namespace kez
