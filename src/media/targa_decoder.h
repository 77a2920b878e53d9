// SPDX-License-Identifier: MIT
/// Decodes Targa pictures from any source of bytes into the one form in which the system keeps
/// pictures: blue, green, red; rows without gaps; the first row is the bottom row.
#pragma once

#include "core/string.h"
#include "media/byte_block.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

/// Where a decoder takes a file from: read once, front to back.
class TargaSource {
public:
    virtual ~TargaSource() = default;
    [[nodiscard]] virtual std::uint64_t remaining() const = 0;
    virtual std::size_t read(std::span<std::uint8_t> into) = 0; ///< As much as there is.
    virtual bool skip(std::size_t count) = 0; ///< False when fewer bytes remain.

    /// All that remains, if it lies in memory already; else nothing.
    [[nodiscard]] virtual std::span<const std::uint8_t> inMemory() const { return {}; }
};

/// A file in memory; borrows it.
class TargaBytes final : public TargaSource {
public:
    explicit TargaBytes(std::span<const std::uint8_t> file)
        : rest_(file)
    {
    }

    [[nodiscard]] std::uint64_t remaining() const override { return rest_.size(); }

    std::size_t read(std::span<std::uint8_t> into) override;
    bool skip(std::size_t count) override;

    [[nodiscard]] std::span<const std::uint8_t> inMemory() const override { return rest_; }

private:
    std::span<const std::uint8_t> rest_;
};

struct TargaPicture {
    int width = 0; ///< Set as soon as it is known to be positive, also when the decoding fails.
    int height = 0; ///< Likewise.
    ByteBlock pixels; ///< Empty unless the decoding succeeded. May be longer than the picture.
};

/// The text of the refusal, or an empty one.
[[nodiscard]] String decodeTarga(TargaSource& source, TargaPicture& picture);

} // namespace kez
