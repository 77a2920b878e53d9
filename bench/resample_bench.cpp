// SPDX-License-Identifier: MIT
// Pictures as the enlarged view meets them: from the camera, imported, and a large one put into the
// store by another program. Beside libyuv, whose box filter is the nearest thing to ours.
#include "media/resample.h"

#include <libyuv/scale_rgb.h>

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

namespace kez::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int viewWidth = 320;
constexpr int viewHeight = 240;

Bytes photograph(int width, int height)
{
    Bytes pixels;
    std::uint32_t noise = 1;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int channel = 0; channel < 3; ++channel) {
                noise = noise * 1664525 + 1013904223;
                pixels.push_back(static_cast<std::uint8_t>(
                    static_cast<std::uint32_t>(x + y * channel) / 4 + (noise >> 29)));
            }
    return pixels;
}

void ours(benchmark::State& state, int width, int height)
{
    const Bytes source = photograph(width, height);
    Bytes target(viewWidth * viewHeight * 3);
    std::uint8_t* into = target.data();
    for (auto pass : state) {
        static_cast<void>(pass);
        resamplePicture(source.data(), width, height, &into, viewWidth, viewHeight);
        benchmark::ClobberMemory();
    }
}

void libyuvs(benchmark::State& state, int width, int height)
{
    const Bytes source = photograph(width, height);
    Bytes target(viewWidth * viewHeight * 3);
    for (auto pass : state) {
        static_cast<void>(pass);
        libyuv::RGBScale(source.data(), width * 3, width, height, target.data(), viewWidth * 3,
            viewWidth, viewHeight, libyuv::kFilterBox);
        benchmark::ClobberMemory();
    }
}

const bool registered = [] {
    for (const auto& [width, height] :
        { std::pair { 160, 120 }, std::pair { 250, 188 }, std::pair { 2048, 1536 } }) {
        const std::string name = "resample/" + std::to_string(width) + "x" + std::to_string(height);
        benchmark::RegisterBenchmark((name + "/kez").c_str(), ours, width, height)
            ->Unit(benchmark::kMicrosecond);
        benchmark::RegisterBenchmark((name + "/libyuv").c_str(), libyuvs, width, height)
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}();

} // namespace

} // namespace kez::bench
