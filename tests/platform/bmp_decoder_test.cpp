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

BmpBytes plain(std::uint32_t bits, int width, int height, const Bytes& pixels)
{
    return { .width = width, .height = height, .bits = bits, .pixels = pixels };
}

BmpBytes indexed(std::uint32_t bits, int width, int height, const Bytes& pixels,
    const Bytes& palette = fourColours)
{
    BmpBytes bmp = plain(bits, width, height, pixels);
    bmp.palette = palette;
    return bmp;
}

BmpBytes fields(std::uint32_t bits, int width, const std::vector<std::uint32_t>& masks,
    const Bytes& pixels, std::uint32_t headerSize = 40, std::uint32_t coding = 3)
{
    BmpBytes bmp = plain(bits, width, 1, pixels);
    bmp.masks = masks;
    bmp.headerSize = headerSize;
    bmp.coding = coding;
    return bmp;
}

TEST(BmpDecoder, readsEveryDepth)
{
    BmpBytes afterGap = plain(24, 1, 1, { 1, 2, 3, 0 });
    afterGap.gap = 7;
    BmpBytes noOffset = indexed(8, 1, 1, { 9, 0, 0, 0 }, Bytes(1024, 5));
    noOffset.namesOffset = false;
    const Case cases[] = {
        { "1 bit", indexed(1, 9, 1, { 0xA5, 0x80, 0, 0 }, { 0, 0, 0, 0, 255, 255, 255, 0 }),
            "FFFFFF 000000 FFFFFF 000000 000000 FFFFFF 000000 FFFFFF FFFFFF" },
        { "4 bits", indexed(4, 3, 2, { 0x12, 0x30, 0, 0, 0x01, 0x20, 0, 0 }),
            "000000 FF0000 00FF00 / FF0000 00FF00 0000FF" },
        { "8 bits", indexed(8, 3, 1, { 3, 2, 1, 0 }), "0000FF 00FF00 FF0000" },
        { "a number without a colour", indexed(8, 2, 1, { 1, 77, 0, 0 }), "FF0000 000000" },
        { "16 bits", plain(16, 2, 1, { 0x00, 0x7C, 0x5F, 0x02 }), "FF0000 0094FF" },
        { "24 bits", plain(24, 2, 2, { 1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0 }),
            "090807 0C0B0A / 030201 060504" },
        { "top row first", plain(24, 1, -2, { 1, 2, 3, 0, 7, 8, 9, 0 }), "030201 / 090807" },
        { "32 bits, the fourth byte unheeded", plain(32, 1, 1, { 1, 2, 3, 99 }), "030201" },
        { "no padding behind the last row", plain(24, 1, 1, { 1, 2, 3 }), "030201" },
        { "a gap before the pixels", afterGap, "030201" },
        { "an offset of 0", noOffset, "050505" },
    };
    expectAll(cases);
}

TEST(BmpDecoder, readsBitFields)
{
    const std::vector<std::uint32_t> redLowest = { 0xFF, 0xFF00, 0xFF0000 };
    const std::vector<std::uint32_t> withAlpha = { 0xFF, 0xFF00, 0xFF0000, 0xFF000000 };
    const std::vector<std::uint32_t> high565 = { 0xF800, 0x07E0, 0x001F };
    const Case cases[] = {
        { "565", fields(16, 2, high565, { 0x1F, 0xF8, 0xE0, 0x07 }), "FF00FF 00FF00" },
        { "444 in other places", fields(16, 1, { 0x000F, 0x00F0, 0x0F00 }, { 0x5A, 3 }), "AA5533" },
        { "one bit, three, none", fields(16, 2, { 0x0001, 0x000E, 0 }, { 0x0F, 0, 0x04, 0 }),
            "FFFF00 004900" },
        { "more than eight bits",
            fields(32, 1, { 0x3FF00000, 0x000FFC00, 0x000003FF }, { 0x80, 0x01, 0xF8, 0x3F }),
            "FF8060" },
        { "header of 56 bytes", fields(32, 1, withAlpha, { 1, 2, 3, 0 }, 56), "010203" },
        { "alpha behind 40 bytes", fields(32, 1, withAlpha, { 1, 2, 3, 0 }, 40, 6), "010203" },
        { "header of 124 bytes", fields(16, 1, high565, { 0x1F, 0 }, 124), "0000FF" },
        { "none in 108 bytes", fields(32, 1, redLowest, { 1, 2, 3, 0 }, 108, 0), "030201" },
    };
    expectAll(cases);
    EXPECT_EQ(decoded(fields(16, 1, { 0xA000, 0x07E0, 0x001F }, { 0, 0 }).file()),
        errorOf(ERROR_NOT_SUPPORTED));
}

TEST(BmpDecoder, readsOs2Files)
{
    const auto os2 = [](std::uint32_t headerSize, BmpBytes bmp) {
        bmp.headerSize = headerSize;
        return bmp;
    };
    BmpBytes inRuns = os2(64, indexed(8, 2, 1, { 2, 3, 0, 1 }));
    inRuns.coding = 1;
    const Case cases[] = {
        { "first kind", os2(12, indexed(8, 2, 1, { 1, 0, 0, 0 }, { 0, 0, 0, 0, 0, 255 })),
            "FF0000 000000" },
        { "first kind, 24 bits", os2(12, plain(24, 1, 1, { 1, 2, 3, 0 })), "030201" },
        { "second kind", os2(64, indexed(8, 2, 1, { 1, 2, 0, 0 })), "FF0000 00FF00" },
        { "cut as it may be", os2(16, indexed(8, 2, 1, { 1, 2, 0, 0 })), "FF0000 00FF00" },
        { "second kind in runs", inRuns, "0000FF 0000FF" },
    };
    expectAll(cases);
    for (const std::uint32_t coding : { 3u, 4u }) {
        BmpBytes bmp = os2(64, plain(coding == 3 ? 1 : 24, 1, 1, Bytes(64)));
        bmp.coding = coding;
        EXPECT_EQ(decoded(bmp.file()), errorOf(ERROR_NOT_SUPPORTED));
    }
}

BmpBytes runs(std::uint32_t bits, int width, int height, const Bytes& pixels)
{
    BmpBytes bmp = indexed(bits, width, height, pixels);
    bmp.coding = bits == 8 ? 1u : 2u;
    bmp.colours = 4;
    return bmp;
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
    const Bytes whole = indexed(8, 5, 3, Bytes(24, 1)).file();
    const Bytes coded = runs(4, 5, 2, { 5, 0x12, 0, 0, 0, 5, 0x12, 0x31, 0x20, 0, 0, 1 }).file();
    for (const Bytes* file : { &whole, &coded }) {
        const std::size_t needed = file->size() - (file == &whole ? 3 : 4); // padding, end marks
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
    BmpBytes fivePlanes;
    fivePlanes.planes = 5;
    std::vector<BmpBytes> files = { fivePlanes };
    for (const auto& [width, height] : { std::pair { 0, 1 }, { -1, 1 }, { 1, 0 }, { 1, INT32_MIN },
             { INT32_MAX, INT32_MAX }, { 3'000'000, 2'000'000 } })
        files.push_back(plain(24, width, height, {}));
    for (const std::uint32_t bits : { 0u, 2u, 64u })
        files.push_back(plain(bits, 1, 1, {}));
    for (const auto& [bits, coding] :
        { std::pair { 24u, 3u }, { 24u, 4u }, { 24u, 5u }, { 4u, 1u } })
        files.push_back({ .bits = bits, .coding = coding });
    for (const std::uint32_t headerSize : { 0u, 15u, 66u })
        files.push_back({ .headerSize = headerSize });
    for (BmpBytes& file : files) {
        SCOPED_TRACE(std::to_string(&file - files.data()));
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
        indexed(1, 9, 2, Bytes(8, 3), Bytes(8, 9)),
        fields(16, 5, { 0xF800, 0x07E0, 0x001F }, Bytes(36, 5)),
        fields(32, 3, { 255, 255 << 8, 255 << 16 }, Bytes(24, 7), 124),
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
