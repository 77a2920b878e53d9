// SPDX-License-Identifier: MIT
/// Targa files made field by field, sound or not.
#pragma once

#include "media/targa_header.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace kez::test {

using Bytes = std::vector<std::uint8_t>;

struct TargaBytesOf {
    TargaHeader header;
    Bytes identification {};
    Bytes map {};
    Bytes pixels {};

    [[nodiscard]] Bytes file() const
    {
        std::array<std::uint8_t, TargaHeader::bytes> head {};
        TargaHeader full = header;
        full.identificationLength = static_cast<std::uint8_t>(identification.size());
        full.serialise(head);
        Bytes all(head.begin(), head.end());
        for (const Bytes* part : { &identification, &map, &pixels })
            all.insert(all.end(), part->begin(), part->end());
        return all;
    }
};

inline std::string asText(const Bytes& bytes)
{
    return { bytes.begin(), bytes.end() };
}

} // namespace kez::test
