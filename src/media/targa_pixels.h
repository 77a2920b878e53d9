// SPDX-License-Identifier: MIT
/// Turns the stored pixels of a Targa file, of any depth, plain or run-length encoded, into pixels
/// of three bytes. Every read of the stored bytes and every write is within its bounds.
#pragma once

#include "core/string.h"
#include "media/targa_header.h"
#include "media/targa_palette.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

/// The fewest bytes in which a picture of that header can be stored; what is shorter ends early.
[[nodiscard]] std::uint64_t leastTargaBytes(const TargaHeader& header);

/// The refusal of a file whose pixels end before the picture does.
[[nodiscard]] String targaEndsEarly(std::uint64_t needed, std::uint64_t present);

/// Rows stay in file order. `out` has room for all pixels; `stored` has at least the least bytes.
/// The text of the refusal, or an empty one.
[[nodiscard]] String convertTargaPixels(const TargaHeader& header, const TargaPalette& palette,
    std::span<const std::uint8_t> stored, std::span<std::uint8_t> out);

} // namespace kez
