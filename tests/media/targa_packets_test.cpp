// SPDX-License-Identifier: MIT
#include "media/targa_packets.h"

#include "media/targa_bytes.h"
#include "support/vector_levels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace kez;
using kez::test::Bytes;

namespace {

// The rule in its plainest form, in two passes: the runs of a row, then packets made of them.
Bytes packPlainly(const Bytes& row)
{
    const std::size_t width = row.size() / 3;
    const auto equal = [&](std::size_t a, std::size_t b) {
        return std::equal(&row[a * 3], &row[a * 3] + 3, &row[b * 3]);
    };
    std::vector<std::size_t> runs;
    for (std::size_t at = 0; at < width; at += runs.back()) {
        std::size_t length = 1;
        while (length < 128 && at + length < width && equal(at, at + length))
            ++length;
        runs.push_back(length);
    }
    Bytes out;
    std::size_t at = 0;
    for (std::size_t i = 0; i < runs.size();) {
        std::size_t ones = 0;
        while (i + ones < runs.size() && runs[i + ones] == 1 && ones < 128)
            ++ones;
        const std::size_t stored = std::max<std::size_t>(ones, 1);
        out.push_back(static_cast<std::uint8_t>(ones != 0 ? ones - 1 : (runs[i] - 1) | 0x80));
        out.insert(out.end(), &row[at * 3], &row[at * 3] + stored * 3);
        at += ones != 0 ? ones : runs[i];
        i += stored;
    }
    return out;
}

Bytes pack(const Bytes& row)
{
    Bytes out(row.size() * 2);
    out.resize(packTargaRow(row, out));
    return out;
}

Bytes rowOf(std::string_view letters)
{
    Bytes row;
    for (const char letter : letters)
        row.insert(row.end(), { static_cast<std::uint8_t>(letter), 1, 2 });
    return row;
}

// Control bytes only.
Bytes controlsOf(const Bytes& packed)
{
    Bytes controls;
    for (std::size_t at = 0; at < packed.size();) {
        controls.push_back(packed[at]);
        at += 1 + (packed[at] >= 128 ? 3u : (packed[at] + 1u) * 3);
    }
    return controls;
}

TEST(TargaPackets, makesRunsAndLiteralsAsDescribed)
{
    EXPECT_EQ(pack(rowOf("A")), (Bytes { 0, 'A', 1, 2 }));
    EXPECT_EQ(pack(rowOf("AAABCC")), (Bytes { 0x82, 'A', 1, 2, 0, 'B', 1, 2, 0x81, 'C', 1, 2 }));
    EXPECT_EQ(controlsOf(pack(rowOf(std::string(130, 'A')))), (Bytes { 0xFF, 0x81 }));
    EXPECT_EQ(controlsOf(pack(rowOf(std::string(129, 'A')))), (Bytes { 0xFF, 0 }));
    EXPECT_EQ(controlsOf(pack(rowOf(std::string(129, 'A') + "BC"))), (Bytes { 0xFF, 2 }));
    std::string different;
    for (int i = 0; i < 200; ++i)
        different += static_cast<char>(i);
    EXPECT_EQ(controlsOf(pack(rowOf(different))), (Bytes { 127, 71 }));
}

TEST(TargaPackets, agreesWithThePlainRuleOnRandomRows)
{
    std::mt19937 random(20240611);
    for (int round = 0; round < 4000; ++round) {
        const std::size_t width = 1 + random() % (round % 10 == 0 ? 4000 : 70);
        // Few colours that differ in any one byte, in stretches, so that runs and literals meet
        // at every position.
        const std::size_t change = 1 + random() % 40;
        Bytes row;
        Bytes colour { 0, 0, 0 };
        for (std::size_t i = 0; i < width; ++i) {
            if (random() % 40 < change)
                colour[random() % 3] ^= 1;
            row.insert(row.end(), colour.begin(), colour.end());
        }
        row.shrink_to_fit(); // so that a read behind the row is noticed
        const Bytes expected = packPlainly(row);
        kez::test::atEachVectorLevel(
            [&] { ASSERT_EQ(pack(row), expected) << "width " << width << ", round " << round; });
    }
}

} // namespace
