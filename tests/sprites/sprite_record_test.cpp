// SPDX-License-Identifier: MIT
#include "core/little_endian.h"
#include "fuzz/entries.h"
#include "fuzz/mutations.h"
#include "sprites/random_sprite.h"
#include "sprites/sprite_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace kez::test {

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAreArray;

constexpr std::size_t pixelsBegin = recordHeaderBytes + 4;

// An 8-bit sprite of one row whose pixel bytes are given.
Bytes rowRecord(SpriteMode mode, int width, const Bytes& row)
{
    SpriteRecord record;
    record.name = "row.sp5";
    record.width = static_cast<std::uint32_t>(width);
    record.height = 1;
    record.pixelBits = 8;
    record.encoding = static_cast<std::uint32_t>(mode);
    record.pixels = row;
    return record.serialise();
}

std::string faultOf(Bytes record)
{
    const char* fault = nullptr;
    const bool isSound = SpriteView::parse(record, fault).has_value();
    EXPECT_EQ(isSound, fault == nullptr);
    return isSound ? "" : fault;
}

// The pixel bytes that the encoder makes of a row of colours; '.' is transparent.
Bytes encodedRow(SpriteMode mode, const std::string& row)
{
    std::vector<std::uint32_t> pixels;
    for (const char letter : row)
        pixels.push_back(letter == '.' ? 0 : 0xFF000000u + static_cast<unsigned char>(letter));
    const auto encoded = encodeSprite({ .name = "row.sp5",
        .width = static_cast<int>(row.size()),
        .height = 1,
        .pixels = pixels,
        .mode = mode,
        .bits = 8,
        .paletteName = "row.pal" });
    if (!encoded)
        return {};
    const std::uint32_t offset = loadWord(&encoded->sprite[offsets::pixels]);
    return { encoded->sprite.begin() + offset + 4, encoded->sprite.end() };
}

} // namespace

TEST(SpriteRecord, encodesRowsOfRuns)
{
    struct RowCase {
        const char* name;
        SpriteMode mode;
        std::string row;
        Bytes bytes; // colours are their numbers in order of appearance
    };

    const std::string gap(254, '.');
    const RowCase cases[] = {
        { "all transparent", SpriteMode::ShortRuns, "......", { 6 } },
        { "ends on a literal", SpriteMode::ShortRuns, "..AB.C", { 2, 2, 0, 1, 1, 1, 2 } },
        { "ends on a skip", SpriteMode::ShortRuns, "A...", { 0, 1, 0, 3 } },
        { "raw", SpriteMode::Raw, "ABA", { 0, 1, 0 } },
        { "254 in one byte", SpriteMode::LongRuns, gap + "A", { 254, 1, 0 } },
        { "255 in three", SpriteMode::LongRuns, gap + ".A", { 255, 255, 0, 1, 0 } },
        { "300 in three", SpriteMode::LongRuns, gap + gap.substr(0, 46), { 255, 44, 1 } },
        { "a skip no short count holds", SpriteMode::ShortRuns, gap + "..A", {} },
    };
    for (const RowCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_THAT(encodedRow(row.mode, row.row), ElementsAreArray(row.bytes));
        if (!row.bytes.empty()) {
            EXPECT_EQ(
                faultOf(rowRecord(row.mode, static_cast<int>(row.row.size()), row.bytes)), "");
        }
    }
}

TEST(SpriteRecord, refusesRowsThatDoNotFillTheirWidth)
{
    struct RowCase {
        const char* name;
        SpriteMode mode;
        Bytes bytes;
    };

    const RowCase cases[] = {
        { "raw and short", SpriteMode::Raw, { 1, 2, 3 } },
        { "no bytes", SpriteMode::ShortRuns, {} },
        { "skip past the end", SpriteMode::ShortRuns, { 5 } },
        { "literal past the end", SpriteMode::ShortRuns, { 1, 4, 1, 2, 3, 4 } },
        { "literal count missing", SpriteMode::ShortRuns, { 1 } },
        { "pixels missing", SpriteMode::ShortRuns, { 1, 3, 1, 2 } },
        { "next skip missing", SpriteMode::ShortRuns, { 1, 2, 1, 2 } },
        { "empty literal", SpriteMode::ShortRuns, { 1, 0, 3 } },
        { "escape cut off", SpriteMode::LongRuns, { 255, 4 } },
        { "long skip past the end", SpriteMode::LongRuns, { 255, 4, 1 } },
    };
    for (const RowCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_NE(faultOf(rowRecord(row.mode, 4, row.bytes)), "");
    }
}

TEST(SpriteRecord, refusesHeadersThatLie)
{
    struct HeaderCase {
        std::size_t offset;
        std::uint32_t word;
    };

    const HeaderCase cases[] = {
        { offsets::width, 5 }, { offsets::width, 0x80000001 },
        { offsets::width, largestSpriteSide + 1 }, { offsets::height, 2 },
        { offsets::pixelBits, 0 }, { offsets::pixelBits, 24 }, { offsets::pixels, 0 },
        { offsets::pixels, recordHeaderBytes - 1 }, { offsets::pixels, recordHeaderBytes + 1 },
        { offsets::pixels, 0xFFFFFFFE }, { offsets::paletteNames, recordHeaderBytes },
        { offsets::alphaNames, 4 }, { recordHeaderBytes, 5 }, // the pixel block's length
    };
    const Bytes sound = rowRecord(SpriteMode::Raw, 4, { 1, 2, 3, 4 });
    ASSERT_EQ(faultOf(sound), "");
    for (const HeaderCase& header : cases) {
        Bytes record = sound;
        storeWord(&record[header.offset], header.word);
        EXPECT_NE(faultOf(record), "") << header.offset << ": " << header.word;
    }
    for (std::size_t size = 0; size < sound.size(); ++size)
        EXPECT_NE(
            faultOf(Bytes(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(size))), "");
}

TEST(SpriteRecord, limitsTheAreaThatRunsMayClaim)
{
    // 3 bytes a row claim 32,767 pixels.
    Bytes rows;
    for (int y = 0; y < 600; ++y)
        rows.insert(rows.end(), { 255, 0xFF, 0x7F });
    Bytes record = rowRecord(SpriteMode::LongRuns, 32767, rows);
    EXPECT_EQ(faultOf(record), "");
    storeWord(&record[offsets::height], 600);
    EXPECT_NE(faultOf(record), "");
}

TEST(PaletteRecord, needsEveryColourOfItsSprite)
{
    Bytes sprite = rowRecord(SpriteMode::Raw, 3, { 0, 9, 4 });
    Bytes record(offsets::paletteConverted + 4);
    const auto count = static_cast<std::uint32_t>(record.size());
    storeWord(&record[offsets::paletteColours], count);
    record.resize(record.size() + 4 + 4 * 10, 7);
    storeWord(&record[count], 10);
    const char* fault = nullptr;
    const SpriteView view = SpriteView::parse(sprite, fault).value();
    const auto palette = PaletteView::parse(record, view, fault);
    ASSERT_TRUE(palette) << fault;

    palette->makeOpaque();
    EXPECT_EQ(loadWord(palette->colours() + 36), 0xFF070707u);
    storeWord(&record[offsets::paletteConverted], 1);
    record.back() = 9;
    PaletteView::parse(record, view, fault)->makeOpaque();
    EXPECT_EQ(record.back(), 9);

    storeWord(&record[count], 9);
    EXPECT_FALSE(PaletteView::parse(record, view, fault));
    storeWord(&record[count], 11);
    EXPECT_FALSE(PaletteView::parse(record, view, fault));
    storeWord(&record[offsets::paletteColours], count - 1);
    EXPECT_FALSE(PaletteView::parse(record, view, fault));
    // Its alpha bytes would be the counts and pixels of a sprite that is drawn unchecked.
    EXPECT_FALSE(PaletteView::parse(sprite, view, fault));
    EXPECT_STREQ(fault, "the palette record is a sprite");
}

TEST(AlphaRecord, fitsIndexedSpritesOnlyWithTheirOwnRuns)
{
    Bytes sprite = rowRecord(SpriteMode::ShortRuns, 4, { 1, 2, 70, 71, 1 });
    const char* fault = nullptr;
    const SpriteView view = SpriteView::parse(sprite, fault).value();

    struct PlaneCase {
        const char* name;
        SpriteMode mode;
        Bytes plane;
        bool fits;
    };

    const PlaneCase cases[] = {
        { "the same runs", SpriteMode::ShortRuns, { 1, 2, 128, 255, 1 }, true },
        { "other runs", SpriteMode::ShortRuns, { 2, 1, 128, 1 }, false },
        { "one pixel short", SpriteMode::ShortRuns, { 1, 2, 128 }, false },
        { "the last skip missing", SpriteMode::ShortRuns, { 1, 2, 128, 255 }, false },
        { "another mode", SpriteMode::LongRuns, { 1, 2, 128, 255, 1 }, false },
        { "raw", SpriteMode::Raw, { 0, 128, 255, 0, 0 }, false },
    };
    for (const PlaneCase& plane : cases) {
        SCOPED_TRACE(plane.name);
        Bytes record = rowRecord(plane.mode, 4, plane.plane);
        storeWord(&record[offsets::alphaPlane], recordHeaderBytes);
        EXPECT_EQ(AlphaView::parse(record, view, fault).has_value(), plane.fits);
    }
}

TEST(AlphaRecord, mergesIntoTrueColourSpritesFromAnyMode)
{
    struct PlaneCase {
        SpriteMode mode;
        Bytes plane;
        Bytes alphas; // of the three stored pixels
    };

    const PlaneCase cases[] = {
        { SpriteMode::Raw, { 9, 1, 2, 9, 3 }, { 1, 2, 3 } },
        { SpriteMode::ShortRuns, { 2, 3, 5, 9, 6 }, { 0, 5, 6 } },
        { SpriteMode::LongRuns, { 4, 1, 7 }, { 0, 0, 7 } },
    };
    for (const PlaneCase& plane : cases) {
        Bytes sprite = rowRecord(
            SpriteMode::ShortRuns, 5, { 1, 2, 1, 2, 3, 99, 4, 5, 6, 99, 1, 1, 7, 8, 9, 99 });
        storeWord(&sprite[offsets::pixelBits], 32);
        Bytes record = rowRecord(plane.mode, 5, plane.plane);
        storeWord(&record[offsets::alphaPlane], recordHeaderBytes);
        const char* fault = nullptr;
        const SpriteView view = SpriteView::parse(sprite, fault).value();
        for (int repeated = 0; repeated < 2; ++repeated) {
            const auto alpha = AlphaView::parse(record, view, fault);
            ASSERT_TRUE(alpha) << fault;
            ASSERT_TRUE(alpha->mergeInto(view));
        }
        const Bytes merged(sprite.begin() + pixelsBegin, sprite.end());
        EXPECT_THAT(merged,
            ElementsAreArray<std::uint8_t>({ 1, 2, 1, 2, 3, plane.alphas[0], 4, 5, 6,
                plane.alphas[1], 1, 1, 7, 8, 9, plane.alphas[2] }));
    }
}

TEST(SpriteBuilder, laysRecordsOut)
{
    SpriteRecord record;
    const std::uint32_t pixels[] = { 0x11223344, 0x55667788 };
    record.makeTrueColour("photo", -3, 7, 2, 1, pixels, true);
    Bytes bytes = record.serialise();
    EXPECT_EQ(record.recordSize, 164u);
    EXPECT_EQ(bytes.size(), 164u);
    EXPECT_EQ(record.pixelsOffset, 152u);
    const char* fault = nullptr;
    SpriteView view = SpriteView::parse(bytes, fault).value();
    EXPECT_EQ(view.x(), -3);
    EXPECT_EQ(view.y(), 7);
    EXPECT_EQ(view.depth(), 100);
    EXPECT_TRUE(view.hasAlpha());
    EXPECT_EQ(view.paletteName(), nullptr);
    EXPECT_EQ(loadWord(view.pixels() + 4), 0x55667788u);
    EXPECT_EQ(
        std::string(bytes.begin() + 44, bytes.begin() + 57), std::string("Sprite Image\0", 13));
    EXPECT_EQ(loadWord(&bytes[84]), 1u);
    EXPECT_EQ(loadWord(&bytes[108]), 1u);

    record.paletteNames = { "colours.pal", "second.pal" };
    record.alphaNames = { std::string(50, 'a') };
    record.extra = { 1, 2, 3 };
    bytes = record.serialise();
    EXPECT_EQ(bytes.size(), 152u + 84 + 44 + 12 + 7);
    EXPECT_EQ(record.extraOffset, bytes.size() - 7);
    view = SpriteView::parse(bytes, fault).value();
    EXPECT_STREQ(view.paletteName(), "colours.pal");
    EXPECT_EQ(view.alphaName(), std::string(39, 'a'));

    record.clear();
    EXPECT_EQ(record.recordSize + record.pixelsOffset + record.extraOffset, 0u);
    EXPECT_EQ(record.serialise().size(), 156u);
}

// Records with a few bytes changed: the checks refuse them, or every drawing stays in bounds.
TEST(SpriteRecord, survivesMutations)
{
    Random random(20263);
    for (const int bits : { 8, 16, 32 }) {
        for (const SpriteMode mode :
            { SpriteMode::Raw, SpriteMode::ShortRuns, SpriteMode::LongRuns }) {
            for (const bool hasAlpha : { false, true }) {
                const RandomSprite sprite({ 9, 6, bits, mode, hasAlpha, Spread::Sprite }, random);
                const EncodedSprite& records = sprite.records();
                Bytes seed;
                for (const Bytes* record : { &records.sprite, &records.palette, &records.alpha }) {
                    seed.push_back(static_cast<std::uint8_t>(record->size()));
                    seed.push_back(static_cast<std::uint8_t>(record->size() >> 8));
                    seed.insert(seed.end(), record->begin(), record->end());
                }
                fuzz::feedMutations(fuzz::feedSpriteRecord, seed, 600);
            }
        }
    }
}

} // namespace kez::test
