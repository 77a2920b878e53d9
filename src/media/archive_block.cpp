// SPDX-License-Identifier: MIT
#include "media/archive_block.h"

#include "core/little_endian.h"
#include "media/dif1.h"
#include "platform/ascii_letters.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace kez {

namespace {

// Damaged data can look like any number of tiny records; no archive has this many.
constexpr std::size_t mostRecords = 1u << 20;

constexpr const char* noMemory = "there is not enough memory for it";

std::string placed(std::size_t offset)
{
    return "the record at byte " + std::to_string(offset) + ' ';
}

ArchiveBlock refuse(const char* fault)
{
    return { {}, fault };
}

std::optional<std::string_view> recordName(std::span<const std::uint8_t> record)
{
    const std::size_t room = std::min(recordNameBytes, record.size() - recordNameOffset);
    const char* name = reinterpret_cast<const char*>(record.data() + recordNameOffset);
    const std::size_t length = strnlen(name, room);
    if (length == room)
        return std::nullopt;
    return std::string_view(name, length);
}

ByteBlock readRest(files::Reader& reader, std::size_t size)
{
    ByteBlock bytes = ByteBlock::unset(size);
    if (bytes && reader.read(bytes.bytes()) != size)
        bytes = {};
    return bytes;
}

} // namespace

ArchiveBlock expandArchiveBlock(std::span<const std::uint8_t> file)
{
    if (file.size() < dif1HeaderBytes)
        return refuse("the compressed data end early");
    const std::uint64_t size = std::uint64_t { loadWord16(&file[4]) } * loadWord16(&file[6]);
    if (size > files::largestRead)
        return refuse("it announces more than 1 GiB of data");
    ArchiveBlock result { ByteBlock::zeroed(static_cast<std::size_t>(size)), {} };
    if (!result.block)
        return refuse(noMemory);
    const char* fault = expandDif1(file.subspan(dif1HeaderBytes), result.block.bytes());
    return fault != nullptr ? refuse(fault) : std::move(result);
}

ArchiveBlock readArchiveBlock(std::string_view path)
{
    files::Reader reader(path);
    if (!reader)
        return {};
    if (reader.size() > files::largestRead)
        return refuse("it is larger than 1 GiB");
    ByteBlock file = readRest(reader, static_cast<std::size_t>(reader.size()));
    if (!file)
        return refuse("it cannot be read into memory whole");
    if (isDif1(file.bytes()))
        return expandArchiveBlock(file.bytes());
    return { std::move(file), {} };
}

ArchiveRecords listRecords(std::span<std::uint8_t> block)
{
    ArchiveRecords result;
    std::size_t offset = 0;
    while (offset + recordNameOffset < block.size()) {
        const std::size_t length = loadWord(&block[offset]);
        if (length == 0)
            break;
        if (length <= recordNameOffset || length > block.size() - offset) {
            result.fault = placed(offset) + "has a length that runs past the data";
            break;
        }
        const std::span<std::uint8_t> record = block.subspan(offset, length);
        if (const auto name = recordName(record))
            result.records.push_back({ record, std::string(*name) });
        else if (result.fault.empty())
            result.fault = placed(offset) + "has a name that does not end within 40 bytes";
        if (result.records.size() == mostRecords) {
            result.fault = "it holds more than a million records";
            break;
        }
        offset += length;
    }
    return result;
}

std::string normalisedRecordName(std::string_view name)
{
    std::string result(name);
    for (std::size_t i = 0; i < std::min(result.size(), recordNameBytes); ++i)
        result[i] = lowerCase(result[i]);
    return result;
}

} // namespace kez
