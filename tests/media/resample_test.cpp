// SPDX-License-Identifier: MIT
#include "media/resample.h"

#include "support/vector_levels.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

using namespace kez;
using kez::test::atEachVectorLevel;

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

double advance(double point, double step, int size)
{
    point += step;
    return point >= size - 1 ? size - 2 : point;
}

/// The rule as it is stated, pixel by pixel, for sources of at least 2 × 2.
Picture plainRule(const Picture& source, int sw, int sh, int dw, int dh)
{
    const double rx = static_cast<double>(sw) / dw;
    const double ry = static_cast<double>(sh) / dh;
    const bool reducing = dw <= sw && dh <= sh;
    const auto at = [&](int x, int y, int byte) -> int {
        return source[static_cast<std::size_t>((y * sw + x) * 3 + byte)];
    };
    Picture result;
    double cy = 0.5 * ry;
    if (!reducing && sh - 1 <= cy)
        cy -= 1;
    for (int y = 0; y < dh; ++y, cy = advance(cy, ry, sh)) {
        double cx = 0.5 * rx;
        if (!reducing && sw - 1 <= cx)
            cx -= 1;
        for (int x = 0; x < dw; ++x, cx = advance(cx, rx, sw)) {
            if (!reducing) {
                const int ix = static_cast<int>(cx);
                const int iy = static_cast<int>(cy);
                const double fx = cx - ix;
                const double fy = cy - iy;
                for (int b = 0; b < 3; ++b)
                    result.push_back(static_cast<std::uint8_t>(at(ix, iy, b) * ((1 - fx) * (1 - fy))
                        + at(ix + 1, iy, b) * (fx * (1 - fy)) + at(ix + 1, iy + 1, b) * (fx * fy)
                        + at(ix, iy + 1, b) * ((1 - fx) * fy)));
                continue;
            }
            const double ax = (rx + 1) / 2;
            const double ay = (ry + 1) / 2;
            const int nx = static_cast<int>(rx) + 1;
            const int ny = static_cast<int>(ry) + 1;
            int y0 = static_cast<int>(cy) - ny / 2;
            int y1 = y0 + ny;
            int x0 = static_cast<int>(cx) - nx / 2;
            int x1 = x0 + nx;
            y0 = y0 < 0 ? 0 : y0;
            x0 = x0 < 0 ? 0 : x0;
            y1 = y1 >= sh ? sh - 1 : y1;
            x1 = x1 >= sw ? sw - 1 : x1;
            double weights = 0;
            unsigned sums[3] = {};
            for (int j = y0; j < y1; ++j)
                for (int i = x0; i < x1; ++i) {
                    const double dy = std::fabs(j + 0.5 - cy);
                    const double dx = std::fabs(i + 0.5 - cx);
                    const double wy = dy <= ay ? (ay - dy) * (ay - dy) * 100 : 0;
                    const double wx = dx <= ax ? (ax - dx) * (ax - dx) * 100 : 0;
                    const int w = static_cast<int>(std::sqrt(wx * wx + wy * wy));
                    weights += w;
                    for (int b = 0; b < 3; ++b)
                        sums[b] += static_cast<unsigned>(at(i, j, b) * w);
                }
            for (unsigned sum : sums)
                result.push_back(static_cast<std::uint8_t>(sum / weights));
        }
    }
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
