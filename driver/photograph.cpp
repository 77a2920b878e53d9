// SPDX-License-Identifier: MIT
#include "photograph.h"

#include "photograph_formats.h"
#include "platform/files.h"

#include <algorithm>

namespace kez::driver {

namespace {

constexpr std::uint8_t jpegStart[] = { 0xFF, 0xD8, 0xFF };
constexpr std::uint8_t pngStart[] = { 0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A };

bool startsWith(std::span<const std::uint8_t> bytes, std::span<const std::uint8_t> start)
{
    return bytes.size() >= start.size() && std::equal(start.begin(), start.end(), bytes.begin());
}

} // namespace

std::optional<Picture> readPhotograph(files::Reader& file, std::string& problem)
{
    if (!file) {
        problem = "cannot be opened";
        return std::nullopt;
    }
    // What a file is, its first bytes tell; the extension may be wrong.
    std::uint8_t start[sizeof pngStart];
    const std::span<const std::uint8_t> bytes(start, file.read(start));
    if (bytes.empty())
        problem = file.size() == 0 ? "is empty" : "cannot be read";
    else if (!file.seek(0))
        problem = "cannot be read";
    else if (startsWith(bytes, jpegStart))
        return readJpeg(file, problem);
    else if (startsWith(bytes, pngStart))
        return readPng(file, problem);
    else
        problem = "is no JPEG or PNG picture";
    return std::nullopt;
}

} // namespace kez::driver
