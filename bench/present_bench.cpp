// SPDX-License-Identifier: MIT
// From the canvas to displays of other depths, the whole picture, beside SDL2's conversion.
#include "bench_support.h"
#include "display/present_conversion.h"
#include "libyuv_peers.h"

#include <SDL.h>

#include <cstdint>

namespace kez::bench {

namespace {

struct Target {
    const char* name;
    int bits;
    std::uint32_t red;
    std::uint32_t green;
    std::uint32_t blue;
    std::uint32_t sdlFormat;
};

constexpr Target targets[] = {
    { "565", 16, 0xF800, 0x07E0, 0x001F, SDL_PIXELFORMAT_RGB565 },
    { "555", 16, 0x7C00, 0x03E0, 0x001F, SDL_PIXELFORMAT_RGB555 },
    { "blueHigh", 16, 0x001F, 0x07E0, 0xF800, SDL_PIXELFORMAT_BGR565 },
    { "24bits", 24, 0xFF0000, 0x00FF00, 0x0000FF, SDL_PIXELFORMAT_BGR24 },
};

using Bytes = std::vector<std::uint8_t>;

Bytes emptyDisplay(const Target& target)
{
    return Bytes(static_cast<std::size_t>(canvasWidth * canvasHeight * target.bits / 8));
}

bool convert(CanvasMemory& canvas, Bytes& display, const Target& target)
{
    const PixelRows from { reinterpret_cast<std::uint8_t*>(canvas.data()), canvasWidth * 4,
        canvasWidth, canvasHeight };
    const PixelRows to { display.data(), canvasWidth * target.bits / 8, canvasWidth, canvasHeight };
    return convertPicture(
        from, to, target.bits, DisplayLayout::fromMasks(target.red, target.green, target.blue));
}

bool isExact(const CanvasMemory& canvas, const Bytes& display, const Target& target)
{
    const auto layout = DisplayLayout::fromMasks(target.red, target.green, target.blue);
    for (std::size_t i = 0; i < canvas.size(); ++i) {
        std::uint32_t shown = 0;
        const auto bytes = static_cast<std::size_t>(target.bits / 8);
        std::memcpy(&shown, &display[i * bytes], bytes);
        if (shown != (bytes == 2 ? displayPixel(canvas[i], layout) : canvas[i] & 0xFFFFFF))
            return false;
    }
    return true;
}

void addConversion(const Target& target)
{
    const std::string name = std::string("present/") + target.name;
    benchmark::RegisterBenchmark((name + "/kez").c_str(), [=](benchmark::State& state) {
        CanvasMemory canvas = paintedCanvas();
        Bytes display = emptyDisplay(target);
        if (!convert(canvas, display, target) || !isExact(canvas, display, target)) {
            state.SkipWithError("does not show what the rules say");
            return;
        }
        for (auto pass : state) {
            static_cast<void>(pass);
            convert(canvas, display, target);
            benchmark::ClobberMemory();
        }
    });
    benchmark::RegisterBenchmark((name + "/SDL2").c_str(), [=](benchmark::State& state) {
        const CanvasMemory canvas = paintedCanvas();
        Bytes display = emptyDisplay(target);
        for (auto pass : state) {
            static_cast<void>(pass);
            SDL_ConvertPixels(canvasWidth, canvasHeight, SDL_PIXELFORMAT_RGB888, canvas.data(),
                canvasWidth * 4, target.sdlFormat, display.data(), canvasWidth * target.bits / 8);
            benchmark::ClobberMemory();
        }
    });
    benchmark::RegisterBenchmark((name + "/memcpy").c_str(), [=](benchmark::State& state) {
        const Bytes source(emptyDisplay(target).size(), 1);
        Bytes display = emptyDisplay(target);
        for (auto pass : state) {
            static_cast<void>(pass);
            std::memcpy(display.data(), source.data(), display.size());
            benchmark::ClobberMemory();
        }
    });
}

const bool areAdded = [] {
    for (const Target& target : targets)
        addConversion(target);
    for (const char* const name : { "present/565/canvas_memcpy", "present/555/canvas_memcpy" })
        addMemcpyNamed(name, canvasWidth * canvasHeight);
    addPeer("present/565/pixman", pixmanPresent);
    addPeer("present/565/libyuv", [](Canvas canvas) { return yuvPresent(canvas, 16); });
    addPeer("present/24bits/libyuv", [](Canvas canvas) { return yuvPresent(canvas, 24); });
    return true;
}();

} // namespace

} // namespace kez::bench
