// SPDX-License-Identifier: MIT
#include "media/dif1.h"

#include "media/targa_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace kez;
using kez::test::asText;
using kez::test::Bytes;

namespace {

struct Expanded {
    const char* fault;
    Bytes block;
};

Expanded expand(const Bytes& stream, std::size_t size)
{
    Bytes block(size);
    const char* fault = expandDif1(stream, block);
    return { fault, block };
}

// One token and one byte at a time, on a stream that is known to be sound.
Bytes expandPlainly(const Bytes& stream, std::size_t size)
{
    Bytes block(size);
    std::size_t p = 0;
    for (std::size_t in = 0;;) {
        const std::size_t c = stream[in];
        const std::size_t v
            = c < 3 ? 0 : stream[in + 1] | static_cast<std::size_t>(stream[in + 2]) << 8;
        if (c == 0 && stream[in + 1] == 0)
            return block;
        if (c == 0) {
            p += stream[in + 1];
            in += 2;
        } else if (c < 3) {
            for (std::size_t i = 0; i < c; ++i)
                block[p++] = stream[in + 1 + i];
            in += 1 + c;
        } else {
            const std::size_t source = (p > 65535 ? p - 65535 : 0) + v;
            for (std::size_t i = 0; i < c; ++i, ++p)
                block[p] = block[source + i];
            in += 3;
        }
    }
}

TEST(Dif1, expandsEveryToken)
{
    const struct {
        const char* name;
        Bytes stream;
        std::string text;
    } cases[] = {
        { "nothing", { 0, 0 }, "" },
        { "literals", { 1, 'a', 2, 'b', 'c', 0, 0 }, "abc" },
        { "a copy from the start", { 2, 'a', 'b', 1, 'c', 3, 0, 0, 0, 0 }, "abcabc" },
        { "an overlapping copy repeats", { 1, 'a', 10, 0, 0, 0, 0 }, "aaaaaaaaaaa" },
        { "a pattern of two repeats", { 2, 'a', 'b', 5, 0, 0, 0, 0 }, "abababa" },
        { "a skip leaves zeroes", { 1, 'a', 0, 2, 1, 'b', 0, 0 }, std::string("a\0\0b", 4) },
        { "bytes behind the end do not matter", { 1, 'a', 0, 0, 9, 9, 9 }, "a" },
    };

    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const Expanded result = expand(each.stream, each.text.size());
        EXPECT_EQ(result.fault, nullptr);
        EXPECT_EQ(asText(result.block), each.text);
    }
}

TEST(Dif1, refusesStreamsThatLeaveTheirBounds)
{
    const struct {
        const char* name;
        Bytes stream;
        std::size_t size;
    } cases[] = {
        { "empty", {}, 4 },
        { "no end", { 1, 'a' }, 4 },
        { "half a literal", { 2, 'a' }, 4 },
        { "half a copy", { 1, 'a', 3, 0 }, 9 },
        { "literal behind the block", { 2, 'a', 'b', 0, 0 }, 1 },
        { "copy behind the block", { 1, 'a', 200, 0, 0, 0, 0 }, 200 },
        { "skip behind the block", { 0, 5, 0, 0 }, 4 },
        { "source at p", { 1, 'a', 3, 1, 0, 0, 0 }, 9 },
        { "source far ahead", { 3, 0xFF, 0xFF, 0, 0 }, 9 },
    };

    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_NE(expand(each.stream, each.size).fault, nullptr);
    }
    // The same fault far from both ends.
    Bytes stream { 1, 'a', 3, 9, 0 };
    stream.resize(100, 1);
    EXPECT_NE(expand(stream, 1000).fault, nullptr);
    // A source at p where every v is in reach.
    stream.clear();
    for (int skip = 0; skip < 300; ++skip)
        stream.insert(stream.end(), { 0, 255 });
    stream.insert(stream.end(), { 3, 0xFF, 0xFF });
    stream.resize(stream.size() + 100, 1);
    EXPECT_NE(expand(stream, 100'000).fault, nullptr);
}

TEST(Dif1, agreesWithThePlainRuleOnRandomStreams)
{
    std::mt19937 random(18);
    for (int round = 0; round < 300; ++round) {
        Bytes stream;
        std::size_t p = 0;
        // Long enough now and then that copies count from p − 65535.
        const std::size_t end = round % 30 == 0 ? 150'000 : random() % 2000;
        while (p < end) {
            const std::size_t kind = random() % 8;
            std::size_t count = 1 + random() % 2;
            if (kind == 0) {
                count = 1 + random() % 60;
                stream.insert(stream.end(), { 0, static_cast<std::uint8_t>(count) });
            } else if (kind < 4 || p == 0) {
                stream.push_back(static_cast<std::uint8_t>(count));
                for (std::size_t i = 0; i < count; ++i)
                    stream.push_back(static_cast<std::uint8_t>(random()));
            } else {
                count = 3 + random() % (kind == 4 ? 253 : 30);
                const std::size_t reach = std::min<std::size_t>(p, 65535);
                const std::size_t distance
                    = 1 + random() % (kind < 6 ? std::min<std::size_t>(reach, 40) : reach);
                const std::size_t v = reach - distance;
                stream.insert(stream.end(),
                    { static_cast<std::uint8_t>(count), static_cast<std::uint8_t>(v),
                        static_cast<std::uint8_t>(v >> 8) });
            }
            p += count;
        }
        stream.insert(stream.end(), { 0, 0 });
        const std::size_t size = p + random() % 3 * 50; // some blocks end behind the data
        const Expanded result = expand(stream, size);
        ASSERT_EQ(result.fault, nullptr) << "round " << round;
        ASSERT_EQ(result.block, expandPlainly(stream, size)) << "round " << round;
    }
}

} // namespace
