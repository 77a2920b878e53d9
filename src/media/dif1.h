// SPDX-License-Identifier: MIT
/// The compressed form of an archive: an 8-byte header (the letters "DIF1", u16 A, u16 B) and a
/// stream that expands to A × B bytes. The stream is a sequence of tokens; p is the output
/// position:
///
/// | control byte c | bytes that follow | effect                                                 |
/// |----------------|-------------------|--------------------------------------------------------|
/// | 0              | n = 0             | end of the stream                                      |
/// | 0              | n = 1 to 255      | p moves on by n; the bytes passed over stay zero       |
/// | 1 or 2         | c literal bytes   | written at p                                           |
/// | 3 to 255       | u16 v             | c bytes copied one by one from max(0, p − 65535) + v   |
///
/// Worked example: 02 'a' 'b' · 06 00 00 · 00 00 expands to "abababab": the copy starts at position
/// 0, overlaps its own output and repeats it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

constexpr std::array<std::uint8_t, 4> dif1Magic { 'D', 'I', 'F', '1' };
constexpr std::size_t dif1HeaderBytes = 8;
constexpr std::size_t dif1Reach = 65535; ///< How far back a copy's source may lie.
constexpr std::size_t dif1LongestCopy = 255;

/// The position from which the v of a copy counts.
constexpr std::size_t dif1Base(std::size_t position)
{
    return position > dif1Reach ? position - dif1Reach : 0;
}

inline bool isDif1(std::span<const std::uint8_t> file)
{
    return file.size() >= dif1Magic.size()
        && std::equal(dif1Magic.begin(), dif1Magic.end(), file.begin());
}

/// Expands the stream that follows the header into a block of zero bytes. Null, or what is wrong
/// with the stream, in words; the block then holds what was expanded up to there. Bytes after the
/// end token are ignored.
[[nodiscard]] const char* expandDif1(
    std::span<const std::uint8_t> stream, std::span<std::uint8_t> block);

} // namespace kez
