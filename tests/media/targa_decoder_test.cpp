// SPDX-License-Identifier: MIT
#include "media/targa_decoder.h"

#include "media/targa_bytes.h"
#include "support/vector_levels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace kez;
using namespace kez::test;

namespace {

struct Decoded {
    std::string fault;
    int width = 0;
    int height = 0;
    Bytes pixels;
};

Decoded decode(const Bytes& file)
{
    TargaBytes source(file);
    TargaPicture picture;
    Decoded result;
    result.fault = decodeTarga(source, picture).c_str();
    result.width = picture.width;
    result.height = picture.height;
    if (picture.pixels) {
        const auto size = static_cast<std::size_t>(picture.width * picture.height * 3);
        result.pixels.assign(picture.pixels.data(), picture.pixels.data() + size);
    }
    return result;
}

TargaHeader header(int type, int depth, int width, int height)
{
    return { .imageType = static_cast<std::uint8_t>(type),
        .width = static_cast<std::uint16_t>(width),
        .height = static_cast<std::uint16_t>(height),
        .depth = static_cast<std::uint8_t>(depth) };
}

TargaHeader withMap(TargaHeader header, int length, int entryBits, int origin = 0)
{
    header.mapType = 1;
    header.mapLength = static_cast<std::uint16_t>(length);
    header.mapEntryBits = static_cast<std::uint8_t>(entryBits);
    header.mapOrigin = static_cast<std::uint16_t>(origin);
    return header;
}

TEST(TargaDecoder, convertsEveryDepth)
{
    const struct {
        const char* name;
        TargaBytesOf file;
        Bytes pixels;
    } cases[] = {
        { "24 bits", { header(2, 24, 2, 1), {}, {}, { 1, 2, 3, 4, 5, 6 } }, { 1, 2, 3, 4, 5, 6 } },
        { "32 bits lose the fourth byte",
            { header(2, 32, 2, 1), {}, {}, { 1, 2, 3, 9, 4, 5, 6, 9 } }, { 1, 2, 3, 4, 5, 6 } },
        { "16 bits ignore the top bit",
            { header(2, 16, 3, 1), {}, {}, { 0xFF, 0x7F, 0x00, 0x80, 0x41, 0x0C } },
            { 248, 248, 248, 0, 0, 0, 8, 16, 24 } },
        { "15 bits are 16", { header(2, 15, 1, 1), {}, {}, { 0x41, 0x8C } }, { 8, 16, 24 } },
        { "grey needs no map", { header(3, 8, 2, 1), {}, {}, { 200, 7 } },
            { 200, 200, 200, 7, 7, 7 } },
        { "grey skips a map", { withMap(header(3, 8, 1, 1), 2, 8), {}, { 55, 66 }, { 200 } },
            { 200, 200, 200 } },
        { "true colour skips a map",
            { withMap(header(2, 24, 1, 1), 2, 15), {}, { 9, 9, 9, 9 }, { 1, 2, 3 } }, { 1, 2, 3 } },
        { "32 bits skip a map",
            { withMap(header(2, 32, 1, 1), 1, 24), {}, { 9, 9, 9 }, { 1, 2, 3, 4 } }, { 1, 2, 3 } },
        { "map of 24 bits",
            { withMap(header(1, 8, 2, 1), 2, 24), {}, { 1, 2, 3, 4, 5, 6 }, { 1, 0 } },
            { 4, 5, 6, 1, 2, 3 } },
        { "map of 32 bits", { withMap(header(1, 8, 1, 1), 1, 32), {}, { 1, 2, 3, 4 }, { 0 } },
            { 1, 2, 3 } },
        { "map of 15 bits", { withMap(header(1, 8, 1, 1), 1, 15), {}, { 0x41, 0x8C }, { 0 } },
            { 8, 16, 24 } },
        { "map of 8 bits", { withMap(header(1, 8, 1, 1), 1, 8), {}, { 77 }, { 0 } },
            { 77, 77, 77 } },
        { "an index behind the map is black",
            { withMap(header(1, 8, 1, 1), 1, 8), {}, { 77 }, { 1 } }, { 0, 0, 0 } },
        { "the identification is skipped", { header(2, 24, 1, 1), { 'i', 'd' }, {}, { 1, 2, 3 } },
            { 1, 2, 3 } },
        { "bytes behind the pixels do not matter",
            { header(2, 24, 1, 1), {}, {}, { 1, 2, 3, 4, 5 } }, { 1, 2, 3 } },
    };

    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const Decoded picture = decode(each.file.file());
        EXPECT_EQ(picture.fault, "");
        EXPECT_EQ(picture.pixels, each.pixels);
    }
}

TEST(TargaDecoder, readsBitsAcrossRowsWithoutPadding)
{
    // 3 × 3: 101 010 111, two bytes, seven bits unused.
    Bytes expected;
    for (const int bit : { 1, 0, 1, 0, 1, 0, 1, 1, 1 })
        expected.insert(expected.end(), 3, bit != 0 ? 255 : 0);
    EXPECT_EQ(decode(TargaBytesOf { header(3, 1, 3, 3), {}, {}, { 0xAB, 0x80 } }.file()).pixels,
        expected);
    EXPECT_EQ(decode(TargaBytesOf { header(1, 1, 3, 3), {}, {}, { 0xAB, 0xFF } }.file()).pixels,
        expected);

    const TargaBytesOf mapped { withMap(header(1, 1, 2, 1), 2, 24), {}, { 1, 2, 3, 4, 5, 6 },
        { 0x40 } };
    EXPECT_EQ(decode(mapped.file()).pixels, (Bytes { 1, 2, 3, 4, 5, 6 }));
}

TEST(TargaDecoder, unpacksRunsOfEveryDepth)
{
    const Bytes bgr { 8, 16, 24, 8, 16, 24, 8, 16, 24, 40, 48, 56, 64, 72, 80 };
    const TargaBytesOf files[] = {
        { header(10, 24, 5, 1), {}, {}, { 0x82, 8, 16, 24, 1, 40, 48, 56, 64, 72, 80 } },
        { header(10, 32, 5, 1), {}, {}, { 0x82, 8, 16, 24, 9, 1, 40, 48, 56, 9, 64, 72, 80, 9 } },
        { header(10, 16, 5, 1), {}, {}, { 0x82, 0x41, 0x0C, 1, 0xC5, 0x1C, 0x28, 0x29 } },
        { withMap(header(9, 8, 5, 1), 3, 24), {}, { 8, 16, 24, 40, 48, 56, 64, 72, 80 },
            { 0x82, 0, 1, 1, 2 } },
    };
    for (const TargaBytesOf& file : files) {
        SCOPED_TRACE(file.header.depth);
        const Decoded picture = decode(file.file());
        EXPECT_EQ(picture.fault, "");
        EXPECT_EQ(picture.pixels, bgr);
    }
}

// Each pixel of this 2 × 4 picture has its own colour: row * 2 + column, in the first byte.
Bytes rowsOf(std::initializer_list<int> firstBytes)
{
    Bytes pixels;
    for (const int value : firstBytes)
        pixels.insert(pixels.end(), { static_cast<std::uint8_t>(value), 100, 200 });
    return pixels;
}

TEST(TargaDecoder, bringsRowsIntoTheOrderOfMemory)
{
    const struct {
        const char* name;
        std::uint8_t descriptor;
        std::initializer_list<int> pixels;
    } cases[] = {
        { "as stored", 0x00, { 0, 1, 2, 3, 4, 5, 6, 7 } },
        { "right to left", 0x10, { 1, 0, 3, 2, 5, 4, 7, 6 } },
        { "top row first", 0x20, { 6, 7, 4, 5, 2, 3, 0, 1 } },
        { "both", 0x30, { 7, 6, 5, 4, 3, 2, 1, 0 } },
        // The rows D C B A from the last on go to the places, counted from the end, 0 2 1 3.
        { "two ways", 0x40, { 0, 1, 4, 5, 2, 3, 6, 7 } },
        { "four ways", 0x80, { 0, 1, 2, 3, 4, 5, 6, 7 } },
        { "two ways, top row first", 0x60, { 6, 7, 2, 3, 4, 5, 0, 1 } },
    };

    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        TargaBytesOf file { header(2, 24, 2, 4), {}, {}, rowsOf({ 0, 1, 2, 3, 4, 5, 6, 7 }) };
        file.header.descriptor = each.descriptor;
        EXPECT_EQ(decode(file.file()).pixels, rowsOf(each.pixels));
    }
}

TEST(TargaDecoder, interleavesFourWays)
{
    TargaBytesOf file { header(3, 8, 1, 6), {}, {}, { 1, 2, 3, 4, 5, 6 } };
    file.header.descriptor = 0x80;
    // 6 5 4 3 2 1 go to the places 0 4 1 5 2 3, counted from the end.
    Bytes expected;
    for (const int value : { 3, 5, 1, 2, 4, 6 })
        expected.insert(expected.end(), 3, static_cast<std::uint8_t>(value));
    EXPECT_EQ(decode(file.file()).pixels, expected);
}

TEST(TargaDecoder, refusesWithTheExactText)
{
    const auto flagged = [](TargaHeader head, int mapType) {
        head.mapType = static_cast<std::uint8_t>(mapType);
        return head;
    };
    TargaHeader interleaved = header(2, 24, 1, 1);
    interleaved.descriptor = 0xE1;

    const struct {
        TargaHeader header;
        const char* message;
    } cases[] = {
        { header(2, 24, 0, 0), "Targa has width 0" },
        { header(2, 24, 5, 0), "Targa has height 0" },
        { header(0, 24, 1, 1), "Not a type 1, 2, 3, 9, 10, or 11 Targa, but type 0" },
        { header(8, 24, 1, 1), "Not a type 1, 2, 3, 9, 10, or 11 Targa, but type 8" },
        { header(32, 24, 1, 1), "Not a type 1, 2, 3, 9, 10, or 11 Targa, but type 32" },
        { header(2, 12, 1, 1), "Not a 1, 8, 15, 16, 24, or 32-bit Targa, but 12-bit" },
        { header(9, 1, 1, 1), "1-bit Targas have to be type 1 or 3; this is type 9" },
        { header(10, 8, 1, 1), "8-bit Targas have to be type 1, 3, 9, or 11; this is type 10" },
        { header(3, 16, 1, 1),
            "15-bit, 16-bit, 24-bit, and 32-bit Targas have to be type 2 or 10; this is type 3" },
        { flagged(header(2, 24, 1, 1), 1),
            "Palette length (0) contradicts Palette Included flag (1)" },
        { flagged(withMap(header(1, 8, 1, 1), 3, 24), 2),
            "Palette length (3) contradicts Palette Included flag (2)" },
        { interleaved, "Illegal interleave code: 0xc0" },
        { withMap(header(1, 8, 1, 1), 3, 24, 7), "Palette origin has to be zero: 7" },
        { withMap(header(3, 8, 1, 1), 3, 24, 7), "Palette origin has to be zero: 7" },
        { withMap(header(1, 1, 1, 1), 2, 24, 7), "Palette origin has to be zero: 7" },
        { withMap(header(1, 8, 1, 1), 257, 12), "Palette has more than 256 colours: 257" },
        { withMap(header(1, 8, 1, 1), 2, 12),
            "Palette entry size has to be 8, 15, 16, 24 or 32: 12" },
        { withMap(header(1, 1, 1, 1), 3, 15), "Palette entry size has to be 8, 16, 24 or 32: 15" },
        { withMap(header(1, 1, 1, 1), 3, 24), "Palette does not have 2 entries, but 3" },
        { header(1, 8, 1, 1), "Colour-mapped, but without a palette" },
        { withMap(header(9, 8, 1, 1), 2, 24), "Palette ends early" },
    };

    for (const auto& each : cases) {
        SCOPED_TRACE(each.message);
        EXPECT_EQ(
            decode(TargaBytesOf { each.header, {}, {}, { 0, 0, 0 } }.file()).fault, each.message);
    }
}

TEST(TargaDecoder, numbersRowsThatOverrunAsEachDepthDoes)
{
    // The second of three rows of two pixels overruns with a packet of four.
    const auto fileOf = [](int type, int depth, const Bytes& pixel, int mapLength) {
        TargaBytesOf file { header(type, depth, 2, 3) };
        if (mapLength != 0)
            file.header = withMap(file.header, mapLength, 8);
        file.map = Bytes(static_cast<std::size_t>(mapLength));
        for (const int control : { 0x81, 0x83 }) {
            file.pixels.push_back(static_cast<std::uint8_t>(control));
            file.pixels.insert(file.pixels.end(), pixel.begin(), pixel.end());
        }
        // So that the file could hold the whole picture.
        file.pixels.insert(file.pixels.end(), 16, 0);
        return file.file();
    };
    const std::string start = "Decompression: Row ";
    const std::string end = "'s width is at least 4 instead of 2";
    EXPECT_EQ(decode(fileOf(9, 8, { 0 }, 1)).fault, start + "2" + end);
    EXPECT_EQ(decode(fileOf(11, 8, { 0 }, 0)).fault, start + "2" + end);
    EXPECT_EQ(decode(fileOf(10, 16, { 0, 0 }, 0)).fault, start + "2" + end);
    EXPECT_EQ(decode(fileOf(10, 24, { 0, 0, 0 }, 0)).fault, start + "1" + end);
    EXPECT_EQ(decode(fileOf(10, 32, { 0, 0, 0, 0 }, 0)).fault, start + "1" + end);
}

TEST(TargaDecoder, refusesEveryTruncation)
{
    const TargaBytesOf files[] = {
        { header(2, 24, 3, 2), { 1, 2 }, {}, Bytes(18, 5) },
        { withMap(header(1, 8, 3, 2), 2, 24), {}, Bytes(6), Bytes(6, 1) },
        { header(3, 1, 3, 3), {}, {}, { 1, 2 } },
        { header(10, 24, 3, 2), {}, {}, { 0x82, 1, 2, 3, 2, 1, 2, 3, 4, 5, 6, 7, 8, 9 } },
        { header(10, 32, 3, 1), {}, {}, { 0x81, 1, 2, 3, 4, 0, 1, 2, 3, 4 } },
        { header(2, 16, 3, 2), {}, {}, Bytes(12) },
    };
    for (const TargaBytesOf& each : files) {
        SCOPED_TRACE(each.header.depth);
        const Bytes whole = each.file();
        ASSERT_EQ(decode(whole).fault, "");
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const Decoded cut = decode(Bytes(whole.begin(), whole.begin() + std::ptrdiff_t(size)));
            EXPECT_NE(cut.fault, "") << size << " bytes";
            EXPECT_TRUE(cut.pixels.empty());
        }
    }
    const Bytes noRoom = TargaBytesOf { header(2, 24, 1, 1) }.file();
    EXPECT_EQ(decode(Bytes(17)).fault, "File too small for a Targa");
    EXPECT_EQ(decode(noRoom).fault, "Pixel data end early: at least 3 bytes needed, 0 present");
    Bytes longIdentification = noRoom;
    longIdentification[0] = 200;
    EXPECT_EQ(decode(longIdentification).fault, "Could not seek past Image Identification Field");
}

TEST(TargaDecoder, unpacksAlikeAtEveryVectorLevelWhateverTheFileHolds)
{
    std::mt19937 random(20261123);
    const Bytes whole = [&] {
        TargaBytesOf file { header(10, 24, 150, 40) };
        for (int row = 0; row < 40; ++row)
            for (unsigned left = 150; left != 0;) {
                const unsigned most = std::min(left, random() % 4 == 0 ? 128u : 9u);
                const auto count = 1 + static_cast<unsigned>(random()) % most;
                const bool isRun = random() % 2 == 0;
                file.pixels.push_back(static_cast<std::uint8_t>((count - 1) | (isRun ? 0x80 : 0)));
                for (unsigned i = 0; i < (isRun ? 3 : 3 * count); ++i)
                    file.pixels.push_back(static_cast<std::uint8_t>(random()));
                left -= count;
            }
        return file.file();
    }();
    for (int round = 0; round < 400; ++round) {
        // The first is left as it is; of the others a packet or two run past their rows.
        Bytes file = whole;
        if (round > 0)
            file[18 + random() % (file.size() - 18)] ^= static_cast<std::uint8_t>(random());
        limitVectorLevel(VectorLevel::Plain);
        const Decoded expected = decode(file);
        ASSERT_TRUE(round > 0 || expected.fault.empty());
        atEachVectorLevel([&] {
            const Decoded decoded = decode(file);
            EXPECT_EQ(decoded.fault, expected.fault) << round;
            EXPECT_TRUE(decoded.pixels == expected.pixels) << round;
        });
    }
}

TEST(TargaDecoder, doesNotAllocateForAPictureThatTheFileCannotHold)
{
    // 65,535 × 65,535 pixels in a file of a few bytes, plain and packed.
    for (const int type : { 2, 10 }) {
        const Decoded huge
            = decode(TargaBytesOf { header(type, 32, 65535, 65535), {}, {}, Bytes(99) }.file());
        EXPECT_NE(huge.fault.find("Pixel data end early"), std::string::npos) << huge.fault;
    }
}

} // namespace
