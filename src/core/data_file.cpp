// SPDX-License-Identifier: MIT
#include "core/data_file.h"

#include "core/diagnostics.h"

#include <bit>
#include <span>
#include <string>

namespace kez {

namespace {

// No name or caption is near this; a larger length can only come from a damaged file.
constexpr std::int32_t longestText = 1 << 20;

} // namespace

DataFile::DataFile(const char* path, Direction direction)
    : direction_(direction)
{
    if (direction == Direction::Writing) {
        writer_.emplace(path);
        if (!*writer_)
            writer_.reset();
    } else {
        reader_.emplace(path);
        if (!*reader_)
            reader_.reset();
    }
}

DataFile::~DataFile()
{
    if (writer_ && !writer_->commit())
        reportLastError("A data file could not be written.");
}

bool DataFile::transfer(void* bytes, std::size_t count)
{
    if (count == 0)
        return true;
    const std::span<std::uint8_t> block(static_cast<std::uint8_t*>(bytes), count);
    if (reader_)
        return reader_->read(block) == count;
    if (!writer_)
        return false;
    if (writer_->write(block))
        return true;
    writer_.reset();
    return false;
}

bool DataFile::transfer(std::int32_t& word)
{
    const auto value = static_cast<std::uint32_t>(word);
    std::uint8_t bytes[4];
    for (unsigned i = 0; i < 4; ++i)
        bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
    if (!transfer(bytes, sizeof bytes))
        return false;
    std::uint32_t moved = 0;
    for (unsigned i = 0; i < 4; ++i)
        moved |= static_cast<std::uint32_t>(bytes[i]) << (8 * i);
    word = static_cast<std::int32_t>(moved);
    return true;
}

bool DataFile::transfer(double& number)
{
    const auto bits = std::bit_cast<std::uint64_t>(number);
    auto low = static_cast<std::int32_t>(bits);
    auto high = static_cast<std::int32_t>(bits >> 32);
    if (!transfer(low) || !transfer(high))
        return false;
    number
        = std::bit_cast<double>(static_cast<std::uint64_t>(static_cast<std::uint32_t>(high)) << 32
            | static_cast<std::uint32_t>(low));
    return true;
}

bool DataFile::transfer(String& text)
{
    if (direction_ == Direction::Reading)
        return readText(text);
    std::int32_t length = text.length();
    std::string bytes(text.view());
    return transfer(length) && transfer(bytes.data(), bytes.size());
}

bool DataFile::readText(String& text)
{
    std::int32_t length = 0;
    if (!transfer(length) || length < 0 || length > longestText)
        return false;
    std::string bytes(static_cast<std::size_t>(length), '\0');
    if (!transfer(bytes.data(), bytes.size()))
        return false;
    text = String(bytes.c_str());
    return true;
}

} // namespace kez
