// SPDX-License-Identifier: MIT
#include "media/jpeg_file.h"

#include "fuzz/mutations.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"
#include "support/debug_output.h"
#include "support/plain_jpeg.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

using namespace kez;
using namespace kez::test;

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes decodedByLibrary(const std::string& file)
{
    jpeg_decompress_struct info {};
    jpeg_error_mgr errors {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(file.data()),
        static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    jpeg_start_decompress(&info);
    const std::size_t rowBytes = std::size_t { info.output_width } * 3;
    Bytes pixels(rowBytes * info.output_height);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = &pixels[info.output_scanline * rowBytes];
        jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return pixels;
}

// From ours to the library's form and back.
Bytes exchanged(const Bytes& pixels, int width, int height)
{
    Bytes other;
    for (int y = height; y-- > 0;)
        for (int x = 0; x < width; ++x)
            for (const int channel : { 2, 1, 0 })
                other.push_back(pixels[static_cast<std::size_t>(3 * (y * width + x) + channel)]);
    return other;
}

class JpegFiles : public testing::Test {
protected:
    ~JpegFiles() override { freeJpegPixels(); }

    static Bytes makePicture(int columns, int rows)
    {
        Bytes pixels;
        for (int i = 0; i < columns * rows; ++i)
            for (const int factor : { 5, 2, 3 })
                pixels.push_back(static_cast<std::uint8_t>(i % columns * factor + i / columns * 4));
        return pixels;
    }

    bool reads(const std::string& bytes)
    {
        folder.put("a.jpg", bytes);
        const bool read = readJpeg((folder / "a.jpg").c_str(), &readWidth, &readHeight) != nullptr;
        freeJpegPixels();
        return read;
    }

    static constexpr int width = 47;
    static constexpr int height = 33;
    const Bytes picture = makePicture(width, height);
    const Bytes fromTop = exchanged(picture, width, height);
    TemporaryFolder folder;
    int readWidth = 0;
    int readHeight = 0;
};

TEST_F(JpegFiles, holdExactlyWhatTheLibraryMakesByItself)
{
    ASSERT_EQ(writeJpeg((folder / "a.jpg").c_str(), picture.data(), width, height), 1);
    EXPECT_EQ(folder.get("a.jpg"), PlainJpeg().file(fromTop, width, height));
}

TEST_F(JpegFiles, areReadAsTheLibraryReadsThem)
{
    const struct {
        int width;
        int height;
        bool isProgressive;
    } cases[] = {
        { 47, 33, false }, { 47, 33, true },
        { 4000, 601, true }, // gives its coefficients back row by row
    };

    for (const auto& each : cases) {
        const Bytes pixels = makePicture(each.width, each.height);
        const std::string file = PlainJpeg { .isProgressive = each.isProgressive }.file(
            exchanged(pixels, each.width, each.height), each.width, each.height);
        folder.put("a.jpg", file);
        const std::uint8_t* read = readJpeg((folder / "a.jpg").c_str(), &readWidth, &readHeight);
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(readWidth, each.width);
        EXPECT_EQ(readHeight, each.height);
        EXPECT_TRUE(exchanged(Bytes(read, read + pixels.size()), each.width, each.height)
            == decodedByLibrary(file));
        freeJpegPixels();
    }
}

TEST_F(JpegFiles, tellHowTheCameraWasHeld)
{
    ASSERT_TRUE(reads(PlainJpeg { .orientation = 6 }.file(fromTop, width, height)));
    EXPECT_EQ(lastJpegOrientation(), 6);
    EXPECT_EQ(readWidth, width) << "not turned yet";
    ASSERT_TRUE(reads(PlainJpeg().file(fromTop, width, height)));
    EXPECT_EQ(lastJpegOrientation(), 1);
}

TEST_F(JpegFiles, areRefusedInOtherColours)
{
    DebugOutput log;
    const Bytes pixels(static_cast<std::size_t>(width * height * 4), 9);
    EXPECT_FALSE(
        reads(PlainJpeg { .components = 1, .colours = JCS_GRAYSCALE }.file(pixels, width, height)));
    EXPECT_NE(log.text().find("a.jpg"), std::string::npos);
    EXPECT_NE(log.text().find("YCbCr"), std::string::npos);
    EXPECT_FALSE(
        reads(PlainJpeg { .components = 4, .colours = JCS_CMYK }.file(pixels, width, height)));
}

TEST_F(JpegFiles, areRefusedWhenTheyAreCut)
{
    for (const bool isProgressive : { false, true }) {
        const std::string file
            = PlainJpeg { .isProgressive = isProgressive }.file(fromTop, width, height);
        for (std::size_t size = 0; size + 3 < file.size(); size += size < 700 ? 7 : 1)
            ASSERT_FALSE(reads(file.substr(0, size))) << size << " of " << file.size();
        EXPECT_EQ(reads(file.substr(0, file.size() - 2)), !isProgressive)
            << "only the end mark is missing";
        EXPECT_TRUE(reads(file));
    }
}

TEST_F(JpegFiles, areRefusedWhenTheyAreNone)
{
    std::filesystem::create_directory(folder / "folder");
    for (const char* name : { "none", "folder" })
        EXPECT_EQ(readJpeg((folder / name).c_str(), &readWidth, &readHeight), nullptr);
    EXPECT_EQ(readJpeg(nullptr, &readWidth, &readHeight), nullptr);
    EXPECT_FALSE(reads("BM, but not really"));
}

// A header that claims a picture of 65,500 × 65,500, then nothing; and a progressive file with
// thousands of scans, which is a picture of a few bytes but would take hours.
TEST_F(JpegFiles, areRefusedWhenTheyAskForTooMuch)
{
    DebugOutput log;
    std::string file = PlainJpeg().file(fromTop, width, height);
    const std::size_t frame = file.find("\xFF\xC0");
    ASSERT_NE(frame, std::string::npos);
    for (const std::size_t at : { frame + 5, frame + 7 }) {
        file[at] = static_cast<char>(0xFF);
        file[at + 1] = static_cast<char>(0xDC);
    }
    EXPECT_FALSE(reads(file));
    EXPECT_NE(log.text().find("100 megapixels"), std::string::npos);

    std::string scans = PlainJpeg { .isProgressive = true }.file(fromTop, width, height);
    const std::size_t last = scans.rfind("\xFF\xDA");
    const std::string scan = scans.substr(last, scans.size() - 2 - last);
    scans.resize(scans.size() - 2);
    for (int i = 0; i < 3000; ++i)
        scans += scan;
    log.take();
    EXPECT_FALSE(reads(scans + "\xFF\xD9"));
    EXPECT_NE(log.text().find("too many scans"), std::string::npos);
}

TEST_F(JpegFiles, leaveTheOldFileWhenWritingFails)
{
    DebugOutput log;
    folder.put("a.jpg", "old");
    const std::string path = folder / "a.jpg";
    const Bytes large(640 * 480 * 3, 77);
    const files::Fault::Plan plans[]
        = { { .failWriteNumber = 0 }, { .failCommitNumber = 0 }, { .roomBytes = 500 } };
    for (const files::Fault::Plan& plan : plans) {
        const files::Fault fault(plan);
        EXPECT_EQ(writeJpeg(path.c_str(), picture.data(), width, height), 0);
    }
    EXPECT_EQ(folder.get("a.jpg"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string> { "a.jpg" });
    EXPECT_NE(log.text().find(path), std::string::npos);
    EXPECT_EQ(writeJpeg((folder / "no/such.jpg").c_str(), picture.data(), width, height), 0);
    EXPECT_EQ(writeJpeg(path.c_str(), picture.data(), 0, height), 0);
    EXPECT_EQ(writeJpeg(path.c_str(), large.data(), 70'000, 1), 0) << "wider than a JPEG can be";
    EXPECT_EQ(folder.get("a.jpg"), "old");
}

TEST_F(JpegFiles, mutatedAreReadOrRefused)
{
    static TemporaryFolder place;
    const auto feed = [](std::span<const std::uint8_t> bytes) {
        place.put("a.jpg", std::string(bytes.begin(), bytes.end()));
        int wide = 0;
        int high = 0;
        const std::uint8_t* pixels = readJpeg((place / "a.jpg").c_str(), &wide, &high);
        if (pixels != nullptr && wide > 0 && high > 0 && wide < 2000 && high < 2000) {
            volatile std::uint8_t last = pixels[std::ptrdiff_t { 3 } * wide * high - 1];
            static_cast<void>(last);
        }
        freeJpegPixels();
    };
    const std::string file
        = PlainJpeg { .isProgressive = true, .orientation = 3 }.file(fromTop, width, height);
    fuzz::feedMutations(feed, Bytes(file.begin(), file.end()), 300);
}

} // namespace
