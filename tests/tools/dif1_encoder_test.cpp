// SPDX-License-Identifier: MIT
#include "tools/dif1_encoder.h"

#include "media/archive_block.h"
#include "media/dif1.h"
#include "tools/match_finder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace kez;
using namespace kez::tools;

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes randomBytes(std::mt19937& random, std::size_t size, unsigned letters)
{
    Bytes bytes(size);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random() % letters);
    return bytes;
}

// The length of the shortest stream, by trying every token at every position.
std::size_t shortestStream(const Bytes& bytes)
{
    std::vector<std::size_t> cost(bytes.size() + 1, 2);
    for (std::size_t at = bytes.size(); at-- > 0;) {
        cost[at] = cost[at + 1] + 2;
        if (at + 2 <= bytes.size())
            cost[at] = std::min(cost[at], cost[at + 2] + 3);
        for (std::size_t source = 0; source < at; ++source)
            for (std::size_t i = 0;
                 i < 255 && at + i < bytes.size() && bytes[source + i] == bytes[at + i]; ++i)
                if (i >= 2)
                    cost[at] = std::min(cost[at], cost[at + i + 1] + 3);
    }
    return cost[0];
}

TEST(Dif1Encoder, makesStreamsThatExpandToTheSameBytes)
{
    std::mt19937 random(5);
    std::vector<Bytes> inputs { {}, { 7 }, { 7, 7 }, { 7, 7, 7 }, Bytes(100'000, 0) };
    for (const unsigned letters : { 2u, 5u, 256u })
        inputs.push_back(randomBytes(random, 5000, letters));
    // The same long piece just within and just out of reach.
    for (const std::size_t gap : { std::size_t { 65'000 }, dif1Reach - 300, dif1Reach }) {
        const Bytes piece = randomBytes(random, 300, 256);
        Bytes bytes = piece;
        const Bytes between = randomBytes(random, gap, 256);
        bytes.insert(bytes.end(), between.begin(), between.end());
        bytes.insert(bytes.end(), piece.begin(), piece.end());
        inputs.push_back(bytes);
    }
    for (const Bytes& input : inputs) {
        SCOPED_TRACE(input.size());
        Bytes block(input.size());
        EXPECT_EQ(expandDif1(encodeDif1(input), block), nullptr);
        EXPECT_TRUE(block == input);
    }
}

std::size_t longestByTrying(const Bytes& bytes, std::size_t at)
{
    std::size_t best = 0;
    for (std::size_t source = at - std::min(at, dif1Reach); source < at; ++source) {
        std::size_t length = 0;
        while (length < dif1LongestCopy && at + length < bytes.size()
            && bytes[source + length] == bytes[at + length])
            ++length;
        best = std::max(best, length);
    }
    return best < 3 ? 0 : best;
}

// Few letters make long trees, and more bytes than the reach make them lose their oldest.
TEST(MatchFinder, findsTheLongestMatchWithinReach)
{
    std::mt19937 random(23);
    for (const unsigned letters : { 1u, 2u, 20u }) {
        Bytes bytes = randomBytes(random, 90'000, letters);
        std::copy_n(bytes.begin() + 5'000, 300, bytes.begin() + 5'000 + std::ptrdiff_t(dif1Reach));
        std::copy_n(bytes.begin() + 6'000, 300, bytes.begin() + 6'001 + std::ptrdiff_t(dif1Reach));
        MatchFinder finder(bytes);
        for (std::size_t at = 0; at < bytes.size(); ++at) {
            const Match found = finder.next();
            if (at % 1999 != 0 && at != 5'000 + dif1Reach && at != 6'001 + dif1Reach)
                continue;
            ASSERT_EQ(found.length, longestByTrying(bytes, at)) << letters << " letters, at " << at;
            if (found.length != 0) {
                ASSERT_TRUE(std::equal(bytes.begin() + std::ptrdiff_t(at),
                    bytes.begin() + std::ptrdiff_t(at + found.length),
                    bytes.begin() + std::ptrdiff_t(at - found.distance)));
            }
        }
    }
}

TEST(Dif1Encoder, findsTheShortestStream)
{
    std::mt19937 random(11);
    for (int round = 0; round < 30; ++round) {
        const Bytes input
            = randomBytes(random, 1 + random() % 250, 2 + static_cast<unsigned>(random() % 4));
        ASSERT_EQ(encodeDif1(input).size(), shortestStream(input)) << "round " << round;
    }
}

TEST(Dif1Encoder, padsToAProductOfTwoWords)
{
    for (const std::size_t size : { std::size_t { 0 }, std::size_t { 12 }, std::size_t { 65'537 },
             std::size_t { 299'993 } }) { // primes among them
        SCOPED_TRACE(size);
        const auto file = compressArchive(Bytes(size, 42));
        ASSERT_TRUE(file);
        const ArchiveBlock expanded = expandArchiveBlock(*file);
        EXPECT_EQ(expanded.fault, "");
        const auto block = expanded.block.bytes();
        ASSERT_GE(block.size(), size);
        EXPECT_LE(block.size(), size + 100);
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(block, 42)), size);
        EXPECT_TRUE(std::all_of(block.begin() + std::ptrdiff_t(size), block.end(),
            [](std::uint8_t byte) { return byte == 0; }));
    }
}

} // namespace
