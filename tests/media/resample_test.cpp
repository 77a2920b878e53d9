// SPDX-License-Identifier: MIT
#include "media/resample.h"

#include "media/plain_resample.h"
#include "support/vector_levels.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <random>
#include <vector>

using namespace kez;
using kez::test::atEachVectorLevel;
using kez::test::plainRule;

namespace {

using Picture = std::vector<std::uint8_t>;

Picture noise(int width, int height, unsigned seed)
{
    std::mt19937 random(seed);
    Picture picture(static_cast<std::size_t>(width * height * 3));
    for (std::uint8_t& byte : picture)
        byte = static_cast<std::uint8_t>(random());
    return picture;
}

Picture resampled(const Picture& source, int sw, int sh, int dw, int dh)
{
    Picture result(static_cast<std::size_t>(dw * dh * 3));
    std::uint8_t* to = result.data();
    resamplePicture(source.data(), sw, sh, &to, dw, dh);
    return result;
}

void expectThePlainRule(const Picture& source, int sw, int sh, int dw, int dh)
{
    const Picture expected = plainRule(source, sw, sh, dw, dh);
    atEachVectorLevel([&] {
        EXPECT_TRUE(resampled(source, sw, sh, dw, dh) == expected)
            << sw << " x " << sh << " to " << dw << " x " << dh;
    });
}

} // namespace

TEST(Resample, agreesWithThePlainRuleAtEverySize)
{
    const int sizes[] = { 2, 3, 5, 7, 16, 33 };
    for (const int sw : sizes)
        for (const int sh : sizes)
            for (const int dw : { 1, 2, 4, 7, 20, 47 })
                for (const int dh : { 1, 3, 7, 16, 35 }) {
                    const Picture source = noise(sw, sh, static_cast<unsigned>(sw * 100 + sh));
                    expectThePlainRule(source, sw, sh, dw, dh);
                }
    for (const auto& [sw, sh] : { std::pair(160, 120), std::pair(250, 188), std::pair(317, 240),
             std::pair(640, 480), std::pair(811, 602) }) {
        const Picture source = noise(sw, sh, 7);
        expectThePlainRule(source, sw, sh, 320, 240);
    }
    // Whole numbers everywhere and in many places, which doubles may fall short of.
    expectThePlainRule(Picture(std::size_t { 3 } * 250 * 188, 255), 250, 188, 320, 240);
    Picture coarse = noise(250, 188, 11);
    for (std::uint8_t& byte : coarse)
        byte = byte % 8 == 0 ? 254 : 255;
    expectThePlainRule(coarse, 250, 188, 320, 240);
    // Halving, with every rest of its steps, and with the greatest sums.
    for (int half = 2; half < 14; ++half) {
        expectThePlainRule(
            noise(2 * half, 2 * half + 4, 9), 2 * half, 2 * half + 4, half, half + 2);
        const Picture white(noise(2 * half, 8, 9).size(), 255);
        expectThePlainRule(white, 2 * half, 8, half, 4);
    }
    expectThePlainRule(noise(320, 240, 10), 320, 240, 160, 120);
    // Doubling likewise.
    for (int size = 2; size < 14; ++size) {
        expectThePlainRule(noise(size, size + 1, 9), size, size + 1, 2 * size, 2 * size + 2);
        expectThePlainRule(Picture(static_cast<std::size_t>(9 * size), 255), size, 3, 2 * size, 6);
    }
    // Weights that return after a few rows, that never do, and that take more than 15 bits.
    for (const auto& [sw, sh, dw, dh] : { std::array { 1024, 768, 160, 120 },
             std::array { 811, 602, 97, 61 }, std::array { 1280, 1000, 32, 24 } }) {
        for (const Picture& source : { noise(sw, sh, 8), Picture(noise(sw, sh, 0).size(), 255) })
            expectThePlainRule(source, sw, sh, dw, dh);
    }
}

TEST(Resample, weighsAHalvedAreaByDistance)
{
    Picture source(320 * 240 * 3, 0);
    const auto set = [&](int x, int y, int value) {
        source[static_cast<std::size_t>((y * 320 + x) * 3)] = static_cast<std::uint8_t>(value);
    };
    set(0, 0, 200); // weight 141
    set(2, 1, 100); // weight 100
    set(2, 2, 255); // left out
    EXPECT_EQ(resampled(source, 320, 240, 160, 120)[0], (200 * 141 + 100 * 100) / (4 * 141 + 400));
}

TEST(Resample, keepsTheFirstPixelAtTheSameSizeAndMixesTheRest)
{
    const Picture source = noise(9, 8, 3);
    const Picture result = resampled(source, 9, 8, 9, 8);
    EXPECT_EQ(result[0], source[0]);
    EXPECT_NE(result, source);
}

TEST(Resample, staysInsideSourcesOfOnePixelAWay)
{
    // The exact size of the buffers is the test: the sanitizer sees a read outside them.
    for (const auto& [sw, sh] : { std::pair(1, 1), std::pair(1, 9), std::pair(9, 1) })
        for (const auto& [dw, dh] : { std::pair(1, 1), std::pair(4, 3), std::pair(1, 12) }) {
            const Picture grey(static_cast<std::size_t>(sw * sh * 3), 77);
            for (const std::uint8_t byte : resampled(grey, sw, sh, dw, dh))
                ASSERT_NEAR(byte, 77, 1) << sw << " x " << sh << " to " << dw << " x " << dh;
        }
}

TEST(Resample, allocatesForACallerWithoutABufferAndRefusesNonsense)
{
    const Picture source = noise(4, 4, 1);
    std::uint8_t* made = nullptr;
    resamplePicture(source.data(), 4, 4, &made, 2, 2);
    ASSERT_NE(made, nullptr);
    delete[] made;

    std::uint8_t* none = nullptr;
    resamplePicture(nullptr, 4, 4, &none, 2, 2);
    resamplePicture(source.data(), 0, 4, &none, 2, 2);
    resamplePicture(source.data(), 4, 4, &none, 2, -1);
    EXPECT_EQ(none, nullptr);
}
