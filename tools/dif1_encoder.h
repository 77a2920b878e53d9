// SPDX-License-Identifier: MIT
/// Compresses an archive. The stream's tokens are those of media/dif1.h; skips are not used, so the
/// stream also expands into a block that was not cleared.
///
/// The stream is the shortest that such tokens allow: the longest earlier match is found at every
/// position (see match_finder.h), then, from the end backwards, the cheapest way from every
/// position to the end (every literal costs one byte more than it holds, every copy three bytes).
/// Four bytes of memory for each byte of input, besides input and output; about a second for 4 MB
/// of pictures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace kez::tools {

/// Called now and then with the bytes looked at so far.
using EncoderProgress = std::function<void(std::size_t done)>;

/// The stream for exactly these bytes, end token included.
[[nodiscard]] std::vector<std::uint8_t> encodeDif1(
    std::span<const std::uint8_t> bytes, const EncoderProgress& progress = {});

/// The whole compressed file: header and stream. The bytes are followed by as many zeroes as it
/// takes for their number to be a product of two u16. Empty when there are more bytes than the
/// readers take (1 GiB).
[[nodiscard]] std::optional<std::vector<std::uint8_t>> compressArchive(
    std::vector<std::uint8_t> bytes, const EncoderProgress& progress = {});

} // namespace kez::tools
