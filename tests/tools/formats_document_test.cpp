// SPDX-License-Identifier: MIT
// The byte dumps of docs/formats.md are what the code makes, or makes something of.
#include "activity/stored_pictures.h"
#include "media/archive_block.h"
#include "media/delta4.h"
#include "media/sound_record.h"
#include "media/targa_file.h"
#include "platform/temporary_folder.h"
#include "sprites/sprite_encoder.h"
#include "tools/sound_record_builder.h"

#include <gtest/gtest.h>

#include <charconv>
#include <fstream>
#include <sstream>

using namespace kez;
using namespace kez::test;

namespace {

using Bytes = std::vector<std::uint8_t>;

// A word that is just so many hexadecimal digits.
std::optional<unsigned> hex(const std::string& word, std::size_t digits)
{
    unsigned value = 0;
    const char* end = word.data() + word.size();
    const auto [at, error] = std::from_chars(word.data(), end, value, 16);
    const bool whole = error == std::errc() && at == end && word.size() == digits;
    return whole ? std::optional(value) : std::nullopt;
}

// A line's bytes, up to the first word that is none: "0a6  00 01 …  its meaning". An offset in
// front fills up with zeroes to its place, which is what "…" in the line before stands for.
void takeLine(const std::string& line, Bytes& bytes)
{
    constexpr std::size_t offsetDigits = 3;
    std::istringstream words(line);
    std::string word;
    bool first = true;
    while (words >> word) {
        const auto offset = hex(word, offsetDigits);
        const auto byte = hex(word, 2);
        if (first && offset && *offset >= bytes.size())
            bytes.resize(*offset);
        else if (byte)
            bytes.push_back(static_cast<std::uint8_t>(*byte));
        else
            return;
        first = false;
    }
}

// The dumps below a heading, in their order.
std::vector<Bytes> dumps(const std::string& heading)
{
    std::ifstream page(KEZ_SOURCE "/docs/formats.md");
    std::vector<Bytes> found;
    bool inSection = false;
    bool inDump = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## "))
            inSection = line.starts_with("## " + heading);
        const bool isDump = inSection && line.starts_with("    ");
        if (isDump && !inDump)
            found.emplace_back();
        if (isDump)
            takeLine(line, found.back());
        inDump = isDump;
    }
    return found;
}

TEST(FormatsDocument, showsArchives)
{
    auto raw = dumps("Archive").at(0);
    const ArchiveRecords list = listRecords(raw);
    ASSERT_EQ(list.records.size(), 1u);
    EXPECT_EQ(list.records[0].name, "a.sp5");
    EXPECT_EQ(list.records[0].bytes.size(), 13u);
    EXPECT_EQ(list.fault, "");

    const ArchiveBlock expanded = expandArchiveBlock(dumps("Compressed archive").at(0));
    const auto block = expanded.block.bytes();
    EXPECT_EQ(std::string(block.begin(), block.end()), std::string("abababab\0\0\0\0", 12));
}

TEST(FormatsDocument, showsSprites)
{
    constexpr std::uint32_t red = 0xFFFF0000;
    constexpr std::uint32_t green = 0xFF00FF00;
    const std::uint32_t dot[] = { 0, 0, red, green, red, 0, 0, 0 };
    const std::uint32_t ink[] = { 0x80FF0000, green };
    const auto shown = dumps("Sprite");
    ASSERT_EQ(shown.size(), 4u);
    const auto plain = encodeSprite({ .name = "dot.sp5",
        .x = -5,
        .y = 3,
        .depth = 20,
        .width = 4,
        .height = 2,
        .pixels = dot,
        .mode = SpriteMode::ShortRuns });
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->sprite, shown[0]);
    const auto soft = encodeSprite({ .name = "ink.sp5",
        .width = 2,
        .height = 1,
        .pixels = ink,
        .bits = 8,
        .withAlpha = true,
        .paletteName = "ink.pal",
        .alphaName = "ink.alp" });
    ASSERT_TRUE(soft);
    EXPECT_EQ(soft->sprite, shown[1]);
    EXPECT_EQ(soft->palette, shown[2]);
    EXPECT_EQ(soft->alpha, shown[3]);
}

TEST(FormatsDocument, showsASound)
{
    const Bytes shown = dumps("Sound").at(0);
    const auto header = readSoundHeader(shown);
    ASSERT_TRUE(header);
    const auto encoded = soundBlock(shown, *header);
    ASSERT_TRUE(encoded);
    Bytes samples(header->sampleLength);
    expandDelta4(*encoded, samples);
    EXPECT_EQ(samples, (Bytes { 128, 130, 128, 64, 64, 64, 64, 62 }));
    const Bytes sync { 0, 255 };
    EXPECT_EQ(tools::buildSoundRecord({ .name = "pip",
                  .rate = 22050,
                  .sampleLength = 8,
                  .encoding = deltaEncoding,
                  .encoded = *encoded,
                  .syncIntervalMs = 100,
                  .syncValues = sync }),
        shown);
}

TEST(FormatsDocument, showsAPicture)
{
    const Bytes pixels { 1, 2, 3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 7, 8, 9, 7, 8, 9 };
    const TemporaryFolder folder;
    const std::string path = folder / "picture.cam";
    TargaFile file(path.c_str());
    ASSERT_NE(file.write(path.c_str(), true, 3, 2, pixels.data()), nullptr);
    const Bytes shown = dumps("Picture").at(0);
    EXPECT_EQ(folder.get("picture.cam"), std::string(shown.begin(), shown.end()));
}

TEST(FormatsDocument, showsAMask)
{
    const Bytes shown = dumps("Mask").at(0);
    const TemporaryFolder folder;
    folder.put("picture.mask", std::string(shown.begin(), shown.end()));
    std::uint8_t mask[10] = {};
    ASSERT_TRUE(readMask((folder / "picture.mask").c_str(), mask, 10));
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(mask[i] != 0, i == 0 || i == 4) << i;
}

} // namespace
