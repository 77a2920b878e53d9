// SPDX-License-Identifier: MIT
#include "media/delta4.h"

#include "media/plain_delta4.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

using namespace kez;
using testing::Each;
using testing::ElementsAre;

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t untouched = 0xA5;

Bytes plainlyDecoded(const Bytes& stream, std::size_t length)
{
    Bytes out(length);
    kez::test::plainlyExpandDelta4(stream, out);
    return out;
}

// With guards behind both ends: the stream's is the allocation's end, the samples' is looked at.
Bytes decoded(const Bytes& stream, std::size_t length)
{
    Bytes out(length + 8, untouched);
    const Bytes exact(stream);
    expandDelta4(exact, std::span(out).first(length));
    EXPECT_THAT(Bytes(out.end() - 8, out.end()), Each(untouched));
    out.resize(length);
    return out;
}

// The table 0, 1, −1, 10, −10, 100, −100 and the codes.
Bytes streamOf(const std::vector<int>& codes)
{
    Bytes stream { 0, 1, 255, 10, 246, 100, 156, 0, 0, 0, 0, 0, 0, 0, 0, 77 };
    for (std::size_t i = 0; i < codes.size(); i += 2)
        stream.push_back(static_cast<std::uint8_t>(codes[i] * 16 + codes[i + 1]));
    return stream;
}

TEST(Delta4, decodesTheExampleOfItsFormat)
{
    Bytes stream(16);
    stream[0] = 2;
    stream[1] = 0xFE;
    for (const int byte : { 0x01, 0xF4, 0x0F, 0xFF, 0x03, 0x11 })
        stream.push_back(static_cast<std::uint8_t>(byte));
    EXPECT_THAT(decoded(stream, 10), ElementsAre(128, 130, 128, 64, 64, 64, 64, 62, 60, 128));
}

TEST(Delta4, staysWithinAByteAndGoesOnFromThere)
{
    EXPECT_THAT(decoded(streamOf({ 5, 5, 2, 6, 6, 6, 1, 0 }), 9),
        ElementsAre(128, 228, 255, 254, 154, 54, 0, 1, 1));
}

TEST(Delta4, takesEscapesAcrossBytes)
{
    // In the high half of a byte, in the low half, and a run of nothing between two steps.
    EXPECT_THAT(
        decoded(streamOf({ 15, 2, 0, 1, 1, 15, 3, 0 }), 5), ElementsAre(128, 32, 33, 34, 48));
    EXPECT_THAT(
        decoded(streamOf({ 1, 15, 15, 15, 0, 0, 1, 1 }), 4), ElementsAre(128, 129, 130, 131));
    // A run right after an escape repeats its value.
    EXPECT_THAT(decoded(streamOf({ 15, 2, 0, 15, 15, 15, 0, 3, 1, 0 }), 7),
        ElementsAre(128, 32, 32, 32, 32, 33, 33));
}

TEST(Delta4, leavesWhatIsNotReachedSilent)
{
    EXPECT_THAT(decoded(streamOf({}), 5), Each(128));
    EXPECT_THAT(decoded(Bytes(7, 1), 5), Each(128));
    EXPECT_THAT(decoded({}, 3), Each(128));
    EXPECT_THAT(decoded(streamOf({ 1, 1 }), 0), ElementsAre());
    EXPECT_THAT(decoded(streamOf({ 1, 1 }), 1), ElementsAre(128));
}

TEST(Delta4, endsInTheMiddleOfAnything)
{
    EXPECT_THAT(decoded(streamOf({ 1, 15 }), 4), ElementsAre(128, 129, 128, 128));
    EXPECT_THAT(decoded(streamOf({ 15, 4 }), 4), Each(128));
    EXPECT_THAT(decoded(streamOf({ 1, 15, 15, 15 }), 4), ElementsAre(128, 129, 128, 128));
    EXPECT_THAT(decoded(streamOf({ 15, 15, 15, 9 }), 4), Each(128));
    // A run and the second step of a byte stop at the last sample.
    EXPECT_THAT(
        decoded(streamOf({ 15, 2, 0, 15, 15, 15, 15, 15 }), 4), ElementsAre(128, 32, 32, 32));
    EXPECT_THAT(decoded(streamOf({ 1, 1 }), 2), ElementsAre(128, 129));
}

TEST(Delta4, agreesWithThePlainRuleOnAnyBytes)
{
    std::mt19937 random(4);
    for (int round = 0; round < 3000; ++round) {
        Bytes stream(16 + random() % 60);
        // Every third stream has many escapes and runs.
        for (std::uint8_t& byte : stream)
            byte = static_cast<std::uint8_t>(round % 3 == 0 && random() % 2 == 0 ? 255 : random());
        const std::size_t length = 1 + random() % 200;
        SCOPED_TRACE(round);
        for (std::size_t cut = 16; cut <= stream.size(); ++cut) {
            const Bytes part(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(cut));
            ASSERT_EQ(decoded(part, length), plainlyDecoded(part, length));
        }
    }
}

} // namespace
