// SPDX-License-Identifier: MIT
/// Resampling as it is stated, pixel by pixel in doubles, as the measure of the fast loops.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

namespace kez::test {

inline double advance(double point, double step, int size)
{
    point += step;
    return point >= size - 1 ? size - 2 : point;
}

/// The rule as it is stated, pixel by pixel, for sources of at least 2 × 2.
inline std::vector<std::uint8_t> plainRule(
    const std::vector<std::uint8_t>& source, int sw, int sh, int dw, int dh)
{
    const double rx = static_cast<double>(sw) / dw;
    const double ry = static_cast<double>(sh) / dh;
    const bool reducing = dw <= sw && dh <= sh;
    const auto at = [&](int x, int y, int byte) -> int {
        return source[static_cast<std::size_t>((y * sw + x) * 3 + byte)];
    };
    std::vector<std::uint8_t> result;
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

} // namespace kez::test
