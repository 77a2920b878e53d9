// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include "platform/files_fault.h"
#include "platform/files_system.h"
#include "platform/refuse.h"

#include <array>
#include <utility>

namespace kez::files {

namespace {

constexpr std::size_t copyPiece = 64 * 1024;

system::Kind kindOf(const std::string& native)
{
    std::uint64_t bytes = 0;
    return native.empty() ? system::Kind::None : system::kindOf(native, bytes);
}

std::string located(std::string_view path, Naming naming)
{
    return naming == Naming::Ours ? nativePath(path) : std::string(path);
}

bool pour(Reader& from, Writer& to)
{
    std::array<std::uint8_t, copyPiece> piece;
    while (from.position() < from.size()) {
        const std::size_t count = from.read(piece);
        if (count == 0)
            return refuse(ERROR_HANDLE_EOF);
        if (!to.write({ piece.data(), count }))
            return false;
    }
    return true;
}

} // namespace

bool exists(std::string_view path)
{
    return kindOf(nativePath(path)) == system::Kind::File;
}

bool isDirectory(std::string_view path, Naming naming)
{
    return kindOf(located(path, naming)) == system::Kind::Directory;
}

std::uint64_t size(std::string_view path)
{
    const std::string native = nativePath(path);
    std::uint64_t bytes = 0;
    const bool isFile = !native.empty() && system::kindOf(native, bytes) == system::Kind::File;
    return isFile ? bytes : 0;
}

std::optional<std::string> readText(std::string_view path)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    const auto bytes = read(path);
    if (!bytes)
        return std::nullopt;
    const std::string text(bytes->begin(), bytes->end());
    return text.starts_with(mark) ? text.substr(mark.size()) : text;
}

std::optional<Bytes> read(std::string_view path, std::uint64_t limit)
{
    Reader reader(path);
    if (!reader)
        return std::nullopt;
    if (reader.size() > limit || reader.size() > largestRead) {
        SetLastError(ERROR_FILE_TOO_LARGE);
        return std::nullopt;
    }
    Bytes bytes(static_cast<std::size_t>(reader.size()));
    if (reader.read(bytes) == bytes.size())
        return bytes;
    SetLastError(ERROR_HANDLE_EOF);
    return std::nullopt;
}

bool readAt(std::string_view path, std::uint64_t offset, std::span<std::uint8_t> into)
{
    Reader reader(path);
    if (!reader)
        return false;
    if (reader.seek(offset) && reader.read(into) == into.size())
        return true;
    return refuse(ERROR_HANDLE_EOF);
}

bool write(std::string_view path, std::span<const std::uint8_t> bytes)
{
    Writer writer(path);
    return writer && writer.write(bytes) && writer.commit();
}

bool copy(std::string_view from, std::string_view to)
{
    std::optional<Reader> reader(std::in_place, from);
    if (!*reader)
        return false;
    Writer writer(to);
    if (!writer || !pour(*reader, writer))
        return false;
    reader.reset(); // closed before the commit: it may be the very file that is replaced
    return writer.commit();
}

bool remove(std::string_view path)
{
    const std::string native = nativePath(path);
    return !native.empty() && fault::mayRemove() && system::removeFile(native);
}

bool rename(std::string_view from, std::string_view to)
{
    return fault::mayRename() && system::renameEntry(from, to);
}

Reader::Reader(std::string_view path, Naming naming)
{
    const std::string native = located(path, naming);
    if (!native.empty())
        file_ = system::openRegular(native, size_);
}

Reader::~Reader()
{
    if (file_ != nullptr)
        std::fclose(file_);
}

std::size_t Reader::read(std::span<std::uint8_t> into)
{
    if (file_ == nullptr || into.empty())
        return 0;
    const std::size_t count = std::fread(into.data(), 1, into.size(), file_);
    position_ += count;
    return count;
}

bool Reader::seek(std::uint64_t position)
{
    if (file_ == nullptr || position > size_ || !system::seek(file_, position))
        return false;
    position_ = position;
    return true;
}

Writer::Writer(std::string_view path)
    : place_(nativePath(path))
{
    if (!place_.empty())
        file_ = system::openBeside(place_, beside_);
}

Writer::~Writer()
{
    if (file_ != nullptr)
        system::discard(file_, beside_);
}

bool Writer::write(std::span<const std::uint8_t> bytes)
{
    if (file_ == nullptr || failed_)
        return false;
    if (bytes.empty())
        return true;
    failed_ = !fault::mayWrite(bytes.size());
    if (!failed_ && std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size())
        failed_ = !refuse(ERROR_DISK_FULL);
    return !failed_;
}

bool Writer::commit()
{
    if (file_ == nullptr)
        return false;
    if (failed_ || !fault::mayCommit()) {
        system::discard(std::exchange(file_, nullptr), beside_);
        return false;
    }
    return system::putInPlace(std::exchange(file_, nullptr), beside_, place_);
}

} // namespace kez::files
