// SPDX-License-Identifier: MIT
// Pictures as the enlarged view meets them: from the camera, imported, and a large one put into the
// store by another program, and one halved. Beside filters that do the nearest
// thing to ours: OpenCV's by area or between four pixels, libyuv's box and swscale's areas.
#include "media/plain_resample.h"
#include "media/resample.h"
#include "opencv_peers.h"

#include <libyuv/scale_rgb.h>

extern "C" {
#include <libswscale/swscale.h>
}

#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kez::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Case {
    PictureSize from;
    PictureSize to;
};

constexpr Case cases[] = {
    { { 160, 120 }, { 320, 240 } },
    { { 320, 240 }, { 160, 120 } },
    { { 250, 188 }, { 320, 240 } },
    { { 320, 240 }, { 320, 240 } },
    { { 2048, 1536 }, { 320, 240 } },
};

Bytes photograph(PictureSize size)
{
    Bytes pixels;
    std::uint32_t noise = 1;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int channel = 0; channel < 3; ++channel) {
                noise = noise * 1664525 + 1013904223;
                pixels.push_back(static_cast<std::uint8_t>(
                    static_cast<std::uint32_t>(x + y * channel) / 4 + (noise >> 29)));
            }
    return pixels;
}

using Resize = std::function<void(const std::uint8_t*, std::uint8_t*)>;

void time(benchmark::State& state, const Case& sizes, const Resize& resize)
{
    const Bytes source = photograph(sizes.from);
    Bytes target(static_cast<std::size_t>(sizes.to.width * sizes.to.height) * 3);
    for (auto pass : state) {
        static_cast<void>(pass);
        resize(source.data(), target.data());
        benchmark::ClobberMemory();
    }
}

void ours(benchmark::State& state, const Case& sizes)
{
    const auto& [from, to] = sizes;
    const Bytes source = photograph(from);
    Bytes target(static_cast<std::size_t>(to.width * to.height) * 3);
    std::uint8_t* into = target.data();
    resamplePicture(source.data(), from.width, from.height, &into, to.width, to.height);
    if (target != test::plainRule(source, from.width, from.height, to.width, to.height)) {
        state.SkipWithError("does not give what the rule says");
        return;
    }
    time(state, sizes, [&](const std::uint8_t* pixels, std::uint8_t* result) {
        resamplePicture(
            pixels, sizes.from.width, sizes.from.height, &result, sizes.to.width, sizes.to.height);
    });
}

Resize byLibyuv(const Case& sizes)
{
    return [sizes](const std::uint8_t* source, std::uint8_t* target) {
        libyuv::RGBScale(source, sizes.from.width * 3, sizes.from.width, sizes.from.height, target,
            sizes.to.width * 3, sizes.to.width, sizes.to.height, libyuv::kFilterBox);
    };
}

Resize bySwscale(const Case& sizes)
{
    const std::shared_ptr<SwsContext> context(
        sws_getContext(sizes.from.width, sizes.from.height, AV_PIX_FMT_BGR24, sizes.to.width,
            sizes.to.height, AV_PIX_FMT_BGR24, SWS_AREA, nullptr, nullptr, nullptr),
        sws_freeContext);
    return [sizes, context](const std::uint8_t* source, std::uint8_t* target) {
        const int sourceRowBytes = sizes.from.width * 3;
        const int targetRowBytes = sizes.to.width * 3;
        sws_scale(context.get(), &source, &sourceRowBytes, 0, sizes.from.height, &target,
            &targetRowBytes);
    };
}

Resize byOpenCv(const Case& sizes)
{
    return [sizes](const std::uint8_t* source, std::uint8_t* target) {
        resizeByOpenCv(source, sizes.from, target, sizes.to);
    };
}

std::string nameOf(const Case& sizes)
{
    const auto text = [](PictureSize size) {
        return std::to_string(size.width) + "x" + std::to_string(size.height);
    };
    return "resample/" + text(sizes.from) + "_to_" + text(sizes.to);
}

const bool areAdded = [] {
    for (const Case& sizes : cases) {
        const std::string name = nameOf(sizes);
        benchmark::RegisterBenchmark((name + "/kez").c_str(), ours, sizes);
        benchmark::RegisterBenchmark((name + "/libyuv").c_str(), time, sizes, byLibyuv(sizes));
        benchmark::RegisterBenchmark((name + "/OpenCV").c_str(), time, sizes, byOpenCv(sizes));
        benchmark::RegisterBenchmark((name + "/swscale").c_str(), time, sizes, bySwscale(sizes));
    }
    return true;
}();

} // namespace

} // namespace kez::bench
