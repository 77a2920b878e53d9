// SPDX-License-Identifier: MIT
#include "bmp_decoder.h"

#include "fuzz/entries.h"
#include "fuzz/mutations.h"
#include "platform/bmp_bytes.h"
#include "winbase.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

using namespace kez::test;
using namespace kez::winapi;

namespace {

using Bytes = BmpBytes::Bytes;

// The picture's rows from the top, pixels as hexadecimal digits RRGGBB; or why there is none.
std::string decoded(const Bytes& file)
{
    Bitmap bitmap;
    const DWORD error = decodeBmp(file, bitmap);
    if (error != NO_ERROR)
        return "error " + std::to_string(error);
    std::string text;
    for (int y = bitmap.height; y-- > 0;) {
        for (int x = 0; x < bitmap.width; ++x) {
            const BYTE* pixel = bitmap.row(y) + 3 * x;
            char digits[8];
            std::snprintf(digits, sizeof digits, "%02X%02X%02X", pixel[2], pixel[1], pixel[0]);
            text += (x != 0 ? " " : "") + std::string(digits);
        }
        text += y != 0 ? " / " : "";
    }
    return text;
}

std::string errorOf(DWORD code)
{
    return "error " + std::to_string(code);
}

// Colours 0 to 3: black, red, green, blue.
const Bytes fourColours { 0, 0, 0, 0, 0, 0, 255, 0, 0, 255, 0, 0, 255, 0, 0, 0 };
constexpr const char* black = "000000";

struct Case {
    const char* name;
    BmpBytes bmp;
    const char* picture;
};

void expectAll(std::span<const Case> cases)
{
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(decoded(one.bmp.file()), one.picture);
    }
}

TEST(BmpDecoder, readsEveryDepth)
{
    const Case cases[] = {
        { "1 bit",
            { .width = 9,
                .height = 1,
                .bits = 1,
                .palette = { 0, 0, 0, 0, 255, 255, 255, 0 },
                .pixels = { 0xA5, 0x80, 0, 0 } },
            "FFFFFF 000000 FFFFFF 000000 000000 FFFFFF 000000 FFFFFF FFFFFF" },
        { "4 bits",
            { .width = 3,
                .height = 2,
                .bits = 4,
                .palette = fourColours,
                .pixels = { 0x12, 0x30, 0, 0, 0x01, 0x20, 0, 0 } },
            "000000 FF0000 00FF00 / FF0000 00FF00 0000FF" },
        { "8 bits", { .width = 3, .bits = 8, .palette = fourColours, .pixels = { 3, 2, 1, 0 } },
            "0000FF 00FF00 FF0000" },
        { "a number without a colour",
            { .width = 2, .bits = 8, .palette = fourColours, .pixels = { 1, 77, 0, 0 } },
            "FF0000 000000" },
        { "16 bits", { .width = 2, .bits = 16, .pixels = { 0x00, 0x7C, 0x5F, 0x02 } },
            "FF0000 0094FF" },
        { "24 bits",
            { .width = 2,
                .height = 2,
                .pixels = { 1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0 } },
            "090807 0C0B0A / 030201 060504" },
        { "top row first", { .width = 1, .height = -2, .pixels = { 1, 2, 3, 0, 7, 8, 9, 0 } },
            "030201 / 090807" },
        { "32 bits, the fourth byte unheeded", { .bits = 32, .pixels = { 1, 2, 3, 99 } },
            "030201" },
        { "no padding behind the last row", { .pixels = { 1, 2, 3 } }, "030201" },
        { "a gap before the pixels", { .pixels = { 1, 2, 3, 0 }, .gap = 7 }, "030201" },
        { "an offset of 0",
            { .bits = 8,
                .palette = Bytes(1024, 5),
                .pixels = { 9, 0, 0, 0 },
                .namesOffset = false },
            "050505" },
    };
    expectAll(cases);
}

TEST(BmpDecoder, readsBitFields)
{
    const Case cases[] = {
        { "565",
            { .width = 2,
                .bits = 16,
                .coding = 3,
                .masks = { 0xF800, 0x07E0, 0x001F },
                .pixels = { 0x1F, 0xF8, 0xE0, 0x07 } },
            "FF00FF 00FF00" },
        { "444 in other places",
            { .bits = 16, .coding = 3, .masks = { 0x000F, 0x00F0, 0x0F00 }, .pixels = { 0x5A, 3 } },
            "AA5533" },
        { "one bit, three, none",
            { .width = 2,
                .bits = 16,
                .coding = 3,
                .masks = { 0x0001, 0x000E, 0 },
                .pixels = { 0x0F, 0, 0x04, 0 } },
            "FFFF00 004900" },
        { "more than eight bits",
            { .bits = 32,
                .coding = 3,
                .masks = { 0x3FF00000, 0x000FFC00, 0x000003FF },
                .pixels = { 0x80, 0x01, 0xF8, 0x3F } },
            "FF8060" },
        { "red lowest, in a header of 56 bytes",
            { .headerSize = 56,
                .bits = 32,
                .coding = 3,
                .masks = { 0xFF, 0xFF00, 0xFF0000, 0xFF000000 },
                .pixels = { 1, 2, 3, 0 } },
            "010203" },
        { "with alpha behind a header of 40 bytes",
            { .bits = 32,
                .coding = 6,
                .masks = { 0xFF, 0xFF00, 0xFF0000, 0xFF000000 },
                .pixels = { 1, 2, 3, 0 } },
            "010203" },
        { "in a header of 124 bytes",
            { .headerSize = 124,
                .bits = 16,
                .coding = 3,
                .masks = { 0xF800, 0x07E0, 0x001F },
                .pixels = { 0x1F, 0 } },
            "0000FF" },
        { "no fields in a header of 108 bytes",
            { .headerSize = 108,
                .bits = 32,
                .masks = { 0xFF, 0xFF00, 0xFF0000 },
                .pixels = { 1, 2, 3, 0 } },
            "030201" },
    };
    expectAll(cases);
    EXPECT_EQ(decoded(BmpBytes {
                  .bits = 16, .coding = 3, .masks = { 0xA000, 0x07E0, 0x001F }, .pixels = { 0, 0 } }
                          .file()),
        errorOf(ERROR_NOT_SUPPORTED));
}

TEST(BmpDecoder, readsOs2Files)
{
    const Bytes threeByteColours { 0, 0, 0, 0, 0, 255 };
    const Case cases[] = {
        { "the first kind",
            { .headerSize = 12,
                .width = 2,
                .height = 1,
                .bits = 8,
                .palette = threeByteColours,
                .pixels = { 1, 0, 0, 0 } },
            "FF0000 000000" },
        { "the first kind, 24 bits", { .headerSize = 12, .pixels = { 1, 2, 3, 0 } }, "030201" },
        { "the second kind",
            { .headerSize = 64,
                .width = 2,
                .bits = 8,
                .palette = fourColours,
                .pixels = { 1, 2, 0, 0 } },
            "FF0000 00FF00" },
        { "the second kind, cut as it may be",
            { .headerSize = 16,
                .width = 2,
                .bits = 8,
                .palette = fourColours,
                .pixels = { 1, 2, 0, 0 } },
            "FF0000 00FF00" },
        { "the second kind in runs",
            { .headerSize = 64,
                .width = 2,
                .bits = 8,
                .coding = 1,
                .palette = fourColours,
                .pixels = { 2, 3, 0, 1 } },
            "0000FF 0000FF" },
    };
    expectAll(cases);
    for (const std::uint32_t coding : { 3u, 4u })
        EXPECT_EQ(decoded(BmpBytes { .headerSize = 64,
                      .bits = coding == 3 ? 1u : 24u,
                      .coding = coding,
                      .pixels = Bytes(64) }
                              .file()),
            errorOf(ERROR_NOT_SUPPORTED));
}

BmpBytes runs(std::uint32_t bits, int width, int height, const Bytes& pixels)
{
    return { .width = width,
        .height = height,
        .bits = bits,
        .coding = bits == 8 ? 1u : 2u,
        .colours = 4,
        .palette = fourColours,
        .pixels = pixels };
}

TEST(BmpDecoder, followsRuns)
{
    const Case cases[] = {
        { "runs and literals", runs(8, 6, 1, { 3, 1, 0, 3, 2, 3, 0, 0, 0, 1 }),
            "FF0000 FF0000 FF0000 00FF00 0000FF 000000" },
        { "two rows, the bottom one first", runs(8, 2, 2, { 2, 1, 0, 0, 2, 2, 0, 1 }),
            "00FF00 00FF00 / FF0000 FF0000" },
        { "a skip", runs(8, 3, 2, { 1, 1, 0, 2, 1, 1, 1, 3, 0, 1 }),
            "000000 000000 0000FF / FF0000 000000 000000" },
        { "nibbles in turn", runs(4, 5, 1, { 5, 0x12, 0, 1 }),
            "FF0000 00FF00 FF0000 00FF00 FF0000" },
        { "nibbles one by one", runs(4, 5, 1, { 0, 5, 0x12, 0x31, 0x20, 0, 0, 1 }),
            "FF0000 00FF00 0000FF FF0000 00FF00" },
        { "longer than the row", runs(8, 2, 2, { 200, 1, 0, 0, 0, 1 }),
            "000000 000000 / FF0000 FF0000" },
        { "a skip out of the picture", runs(8, 2, 1, { 0, 2, 9, 9, 5, 1, 0, 1 }), "000000 000000" },
        { "full without saying that it ends", runs(8, 2, 1, { 2, 1 }), "FF0000 FF0000" },
        { "ended by its last row's end", runs(8, 2, 1, { 2, 1, 0, 0 }), "FF0000 FF0000" },
    };
    expectAll(cases);
    Bytes whiteFirst = fourColours;
    whiteFirst[0] = whiteFirst[1] = whiteFirst[2] = 255;
    BmpBytes skipped = runs(8, 2, 1, { 0, 1 });
    skipped.palette = whiteFirst;
    EXPECT_EQ(decoded(skipped.file()), "FFFFFF FFFFFF");
    skipped.height = -1;
    EXPECT_EQ(decoded(skipped.file()), errorOf(ERROR_NOT_SUPPORTED)) << "top row first";
}

TEST(BmpDecoder, refusesWhatIsCutAnywhere)
{
    const Bytes plain = BmpBytes { .width = 5,
        .height = 3,
        .bits = 8,
        .palette = fourColours,
        .pixels = Bytes(24, 1) }
                            .file();
    const Bytes coded = runs(4, 5, 2, { 5, 0x12, 0, 0, 0, 5, 0x12, 0x31, 0x20, 0, 0, 1 }).file();
    for (const Bytes* file : { &plain, &coded }) {
        const std::size_t needed = file->size() - (file == &plain ? 3 : 4); // padding, end marks
        for (std::size_t size = 0; size < needed; ++size)
            EXPECT_EQ(
                decoded(Bytes(file->begin(), file->begin() + std::ptrdiff_t(size))).rfind("e", 0),
                0u)
                << size;
        EXPECT_NE(decoded(*file).rfind("e", 0), 0u);
    }
}

TEST(BmpDecoder, refusesWhatMakesNoSense)
{
    constexpr std::int32_t lowest = INT32_MIN;
    const BmpBytes files[] = {
        { .width = 0 },
        { .width = -1 },
        { .height = 0 },
        { .height = lowest },
        { .width = INT32_MAX, .height = INT32_MAX },
        { .width = 3'000'000, .height = 2'000'000 },
        { .bits = 0 },
        { .bits = 2 },
        { .bits = 64 },
        { .planes = 5 },
        { .coding = 4 },
        { .coding = 5 },
        { .bits = 24, .coding = 3 },
        { .bits = 4, .coding = 1 },
        { .headerSize = 0 },
        { .headerSize = 15 },
        { .headerSize = 66 },
    };
    for (BmpBytes file : files) {
        SCOPED_TRACE(std::to_string(file.headerSize) + ", " + std::to_string(file.width) + " by "
            + std::to_string(file.height) + ", " + std::to_string(file.bits) + " bits");
        file.pixels = Bytes(64);
        EXPECT_EQ(decoded(file.file()).rfind("error", 0), 0u);
    }
    Bytes endless = BmpBytes { .pixels = Bytes(64) }.file();
    endless[17] = 0x80; // a header of two gigabytes
    EXPECT_EQ(decoded(endless), errorOf(ERROR_NOT_SUPPORTED));
    Bytes far = BmpBytes { .pixels = { 1, 2, 3, 0 } }.file();
    far[13] = 0xFF; // the pixels far behind the end
    EXPECT_EQ(decoded(far), errorOf(ERROR_FILE_CORRUPT));
    Bytes before = BmpBytes { .pixels = { 1, 2, 3, 0 } }.file();
    before[10] = 20; // the pixels in the header
    EXPECT_EQ(decoded(before), errorOf(ERROR_FILE_CORRUPT));
    EXPECT_EQ(decoded({ 'B', 'A', 1, 2 }), errorOf(ERROR_FILE_CORRUPT));
    EXPECT_EQ(
        decoded(BmpBytes { .bits = 1, .colours = 0xFFFFFFFF, .pixels = Bytes(4) }.file()), black)
        << "a palette larger than the file is as large as there is room";
}

TEST(BmpDecoder, readsOrRefusesMutations)
{
    const BmpBytes seeds[] = {
        { .width = 9, .height = 2, .bits = 1, .palette = Bytes(8, 9), .pixels = Bytes(8, 3) },
        { .width = 5,
            .height = -3,
            .bits = 16,
            .coding = 3,
            .masks = { 0xF800, 0x07E0, 0x001F },
            .pixels = Bytes(36, 5) },
        { .headerSize = 124,
            .width = 3,
            .height = 2,
            .bits = 32,
            .coding = 3,
            .masks = { 255, 255 << 8, 255 << 16 },
            .pixels = Bytes(24, 7) },
        { .headerSize = 12,
            .width = 3,
            .height = 2,
            .bits = 4,
            .palette = Bytes(48, 5),
            .pixels = Bytes(8, 0x31) },
        runs(4, 7, 3, { 5, 0x12, 0, 0, 0, 5, 0x12, 0x31, 0x20, 0, 0, 2, 1, 1, 4, 0x33, 0, 1 }),
        runs(8, 7, 3, { 5, 1, 0, 0, 0, 3, 1, 2, 3, 0, 0, 2, 1, 1, 4, 2, 0, 1 }),
    };
    for (const BmpBytes& seed : seeds)
        kez::fuzz::feedMutations(kez::fuzz::feedBmpFile, seed.file(), 1500);
}

} // namespace
