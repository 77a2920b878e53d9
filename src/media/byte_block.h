// SPDX-License-Identifier: MIT
/// Memory whose size a file dictates: an allocation that the system refuses leaves the block empty
/// instead of ending the program. The bytes never move.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace kez {

class ByteBlock {
public:
    ByteBlock() = default;

    /// Zero bytes; a large block costs no memory until it is touched.
    static ByteBlock zeroed(std::size_t size)
    {
        return { static_cast<std::uint8_t*>(std::calloc(size + 1, 1)), size };
    }

    /// Bytes of no particular value.
    static ByteBlock unset(std::size_t size)
    {
        return { static_cast<std::uint8_t*>(std::malloc(size + 1)), size };
    }

    explicit operator bool() const { return bytes_ != nullptr; } ///< Also true for a size of 0.

    [[nodiscard]] std::uint8_t* data() { return bytes_.get(); }

    [[nodiscard]] const std::uint8_t* data() const { return bytes_.get(); }

    [[nodiscard]] std::size_t size() const { return bytes_ != nullptr ? size_ : 0; }

    [[nodiscard]] std::span<std::uint8_t> bytes() { return { data(), size() }; }

    [[nodiscard]] std::span<const std::uint8_t> bytes() const { return { data(), size() }; }

private:
    struct Free {
        void operator()(std::uint8_t* bytes) const { std::free(bytes); }
    };

    ByteBlock(std::uint8_t* bytes, std::size_t size)
        : bytes_(bytes)
        , size_(size)
    {
    }

    std::unique_ptr<std::uint8_t[], Free> bytes_;
    std::size_t size_ = 0;
};

} // namespace kez
