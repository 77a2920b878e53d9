// SPDX-License-Identifier: MIT
#include "core/data_file.h"

#include <cstdint>
#include <string>

namespace kez {

namespace {

// No name or caption is near this; a larger length can only come from a damaged file.
constexpr unsigned longestText = 1u << 20;

} // namespace

DataFile::DataFile(const char* path, Direction direction)
    : file_(std::fopen(path, direction == Direction::Writing ? "wb" : "rb"))
    , direction_(direction)
    , path_(path)
{
}

DataFile::~DataFile()
{
    if (file_ != nullptr)
        std::fclose(file_);
}

bool DataFile::transfer(void* bytes, std::size_t count)
{
    if (count == 0)
        return true;
    if (file_ == nullptr)
        return false;
    if (direction_ == Direction::Reading)
        return std::fread(bytes, count, 1, file_) == 1;
    if (std::fwrite(bytes, count, 1, file_) == 1 && std::fflush(file_) == 0)
        return true;
    std::fclose(file_);
    file_ = nullptr;
    std::remove(path_.c_str());
    return false;
}

bool DataFile::transferLength(unsigned& length)
{
    unsigned char bytes[4];
    for (unsigned i = 0; i < 4; ++i)
        bytes[i] = static_cast<unsigned char>(length >> (8 * i));
    if (!transfer(bytes, sizeof bytes))
        return false;
    length = 0;
    for (unsigned i = 0; i < 4; ++i)
        length |= static_cast<unsigned>(bytes[i]) << (8 * i);
    return true;
}

bool DataFile::transfer(String& text)
{
    if (direction_ == Direction::Writing) {
        auto length = static_cast<unsigned>(text.length());
        std::string bytes(text.view());
        return transferLength(length) && transfer(bytes.data(), bytes.size());
    }
    unsigned length = 0;
    if (!transferLength(length) || length > longestText)
        return false;
    std::string bytes(length, '\0');
    if (!transfer(bytes.data(), bytes.size()))
        return false;
    text = String(bytes.c_str()); // up to the first zero byte
    return true;
}

} // namespace kez
