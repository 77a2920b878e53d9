// SPDX-License-Identifier: MIT
/// What the benchmarks of drawing share: a canvas, the loop, and the refusal to time what does not
/// draw exactly what the rules say.
#pragma once

#include "blit_peers.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kez::bench {

using CanvasMemory = std::vector<std::uint32_t>;

inline CanvasMemory paintedCanvas()
{
    CanvasMemory canvas(canvasWidth * canvasHeight);
    for (std::size_t i = 0; i < canvas.size(); ++i)
        canvas[i] = static_cast<std::uint32_t>(i * 2654435761u);
    return canvas;
}

using Draw = std::function<void(Canvas)>;

inline bool drawsTheSame(const Draw& draw, const Draw& plain)
{
    CanvasMemory drawn = paintedCanvas();
    CanvasMemory expected = drawn;
    draw(drawn);
    plain(expected);
    return drawn == expected;
}

/// Times `draw`, once it has been seen to draw what `plain` draws.
inline void addOurs(const std::string& name, const Draw& draw, const Draw& plain)
{
    benchmark::RegisterBenchmark((name + "/kez").c_str(), [=](benchmark::State& state) {
        if (!drawsTheSame(draw, plain)) {
            state.SkipWithError("does not draw what the rules say");
            return;
        }
        CanvasMemory canvas = paintedCanvas();
        for (auto pass : state) {
            static_cast<void>(pass);
            draw(canvas);
            benchmark::ClobberMemory();
        }
    });
}

using MakePeer = std::function<std::unique_ptr<Peer>(Canvas)>;

inline void addPeer(const std::string& name, const MakePeer& make)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        CanvasMemory canvas = paintedCanvas();
        const std::unique_ptr<Peer> peer = make(canvas);
        for (auto pass : state) {
            static_cast<void>(pass);
            peer->draw();
            benchmark::ClobberMemory();
        }
    });
}

/// Copies that many pixels at one go, as the benchmark of that name.
inline void addMemcpyNamed(const std::string& name, std::size_t pixels)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        const CanvasMemory source = paintedCanvas();
        CanvasMemory target = paintedCanvas();
        for (auto pass : state) {
            static_cast<void>(pass);
            std::memcpy(target.data(), source.data(), 4 * pixels);
            benchmark::ClobberMemory();
        }
    });
}

inline void addMemcpyOf(const std::string& name, std::size_t pixels)
{
    addMemcpyNamed(name + "/memcpy", pixels);
}

/// Copies as many bytes as the result has, as the measure of the machine.
inline void addMemcpy(const std::string& name, int width, int height)
{
    benchmark::RegisterBenchmark((name + "/memcpy").c_str(), [=](benchmark::State& state) {
        const CanvasMemory source = paintedCanvas();
        CanvasMemory target = paintedCanvas();
        const auto rowBytes = static_cast<std::size_t>(4 * width);
        for (auto pass : state) {
            static_cast<void>(pass);
            for (int y = 0; y < height; ++y)
                std::memcpy(&target[static_cast<std::size_t>(y * canvasWidth)],
                    &source[static_cast<std::size_t>(y * width)], rowBytes);
            benchmark::ClobberMemory();
        }
    });
}

} // namespace kez::bench
