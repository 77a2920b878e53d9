// SPDX-License-Identifier: MIT
#include "sprites/plain_renderer.h"
#include "sprites/span_kernels.h"
#include "support/vector_levels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <vector>

namespace kez::test {

namespace {

using Words = std::vector<std::uint32_t>;
using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t longest = 100;
constexpr std::size_t alignments = 17; // of the target in pixels: every place in a cache line

/// What a span reads. Each part ends with its memory, so that a sanitizer sees what lies behind.
struct Sources {
    Bytes pixels;
    Words colours;
    Bytes plane;
    Bytes indices;
    Bytes palette;
    std::vector<std::int32_t> columns;
    Bytes run;
};

constexpr std::int32_t runColumn = 3;

class SpanSources {
public:
    Sources make(std::size_t count, std::size_t misplaced)
    {
        Sources sources;
        for (std::size_t i = 0; i < misplaced % 4; ++i)
            sources.pixels.push_back(0);
        const std::size_t colours = 1 + random_() % 256;
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint8_t opacity = nextOpacity();
            sources.plane.push_back(opacity);
            sources.colours.push_back(static_cast<std::uint32_t>(random_()));
            sources.indices.push_back(static_cast<std::uint8_t>(random_() % colours));
            for (int byte = 0; byte < 3; ++byte)
                sources.pixels.push_back(static_cast<std::uint8_t>(random_()));
            sources.pixels.push_back(opacity);
        }
        fill(sources.palette, 4 * colours);
        pickColumns(sources, count);
        return sources;
    }

private:
    // Stretches of nothing, of everything and of soft edges.
    std::uint8_t nextOpacity()
    {
        if (stretch_-- == 0) {
            stretch_ = static_cast<int>(random_() % 30);
            kind_ = random_() % 3;
        }
        return static_cast<std::uint8_t>(kind_ == 0 ? 0 : kind_ == 1 ? 255 : random_());
    }

    // Repeated, left out, or both, as scales give them.
    void pickColumns(Sources& sources, std::size_t count)
    {
        const unsigned widest = static_cast<unsigned>(random_() % 3);
        std::int32_t column = runColumn + static_cast<std::int32_t>(random_() % 3);
        for (std::size_t i = 0; i < count; ++i) {
            sources.columns.push_back(column);
            column += static_cast<std::int32_t>(random_() % (widest + 2));
        }
        const std::int32_t last = count == 0 ? runColumn : sources.columns.back();
        fill(sources.run, 4 * static_cast<std::size_t>(last - runColumn + 1));
    }

    void fill(Bytes& bytes, std::size_t count)
    {
        bytes.resize(count);
        std::generate(
            bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random_()); });
    }

    std::mt19937 random_ { 20266 };
    int stretch_ = 0;
    std::mt19937::result_type kind_ = 0;
};

struct Kernel {
    const char* name;
    std::function<void(const SpanKernels&, std::uint32_t*, const Sources&, std::size_t)> run;
};

const std::uint8_t* pixelsOf(const Sources& sources, std::size_t count)
{
    return sources.pixels.data() + sources.pixels.size() - 4 * count;
}

// Two rows, with a gap between them on the canvas.
PixelBlock blockOf(std::uint32_t* to, const Sources& from, std::size_t count)
{
    const std::size_t columns = count / 2;
    return { to, static_cast<std::ptrdiff_t>(columns + 1), pixelsOf(from, count),
        static_cast<std::ptrdiff_t>(4 * columns), columns, 2 };
}

std::vector<Kernel> allKernels()
{
    std::vector<Kernel> kernels = {
        { "copy",
            [](auto& k, auto* to, auto& from, auto n) {
                // Short spans never reach the kernels.
                if (&k == &plainSpanKernels)
                    k.copyBlock({ to, 0, pixelsOf(from, n), 0, n, 1 });
                else
                    copySpan(to, pixelsOf(from, n), n);
            } },
        { "copy block",
            [](auto& k, auto* to, auto& from, auto n) { k.copyBlock(blockOf(to, from, n)); } },
        { "blend block",
            [](auto& k, auto* to, auto& from, auto n) { k.blendBlock(blockOf(to, from, n)); } },
        { "blend",
            [](auto& k, auto* to, auto& from, auto n) { k.blend(to, pixelsOf(from, n), n); } },
        { "palette",
            [](auto& k, auto* to, auto& from, auto n) {
                k.palette(to, from.indices.data(), from.palette.data(), n);
            } },
        { "fill", [](auto& k, auto* to, auto&, auto n) { k.fill(to, 0x12345678, n); } },
        { "blend fill", [](auto& k, auto* to, auto&, auto n) { k.blendFill(to, 0x80A55A3C, n); } },
        { "blend fill, opaque",
            [](auto& k, auto* to, auto&, auto n) { k.blendFill(to, 0xFFA55A3C, n); } },
        { "pick",
            [](auto& k, auto* to, auto& from, auto n) {
                const auto length = static_cast<std::int32_t>(from.run.size() / 4);
                k.pick(to, { from.columns.data(), from.run.data(), runColumn, length }, n);
            } },
        { "reverse",
            [](auto& k, auto* to, auto& from, auto n) { k.reverse(to, pixelsOf(from, n), n); } },
    };
    for (const std::size_t zero : { 0u, 1u }) {
        kernels.push_back({ "blend plane", [zero](auto& k, auto* to, auto& from, auto n) {
                               k.blendPlane[zero](to, from.colours.data(), from.plane.data(), n);
                           } });
        kernels.push_back({ "blend palette", [zero](auto& k, auto* to, auto& from, auto n) {
                               k.blendPalette[zero](to, from.indices.data(), from.plane.data(),
                                   from.palette.data(), n);
                           } });
    }
    return kernels;
}

} // namespace

TEST(SpanKernels, areThePlainRulesAtEveryLengthAndAlignment)
{
    SpanSources sources;
    const std::vector<Kernel> kernels = allKernels();
    Words canvas(alignments + longest + alignments);
    std::mt19937 random(20267);
    std::generate(canvas.begin(), canvas.end(), std::ref(random));
    for (std::size_t count = 0; count <= longest; ++count) {
        for (std::size_t misplaced = 0; misplaced < alignments; ++misplaced) {
            const Sources from = sources.make(count, misplaced);
            for (const Kernel& kernel : kernels) {
                Words expected = canvas;
                kernel.run(plainSpanKernels, expected.data() + misplaced, from, count);
                atEachVectorLevel([&] {
                    Words drawn = canvas;
                    kernel.run(spanKernels(), drawn.data() + misplaced, from, count);
                    ASSERT_EQ(drawn, expected) << kernel.name << " of " << count << " pixels, "
                                               << misplaced << " behind the start";
                });
                if (HasFailure())
                    return;
            }
        }
    }
}

TEST(SpanKernels, fillWholeCanvasesToTheirLastPixel)
{
    constexpr std::size_t count = 640 * 480;
    Words expected(count + 2, 0x12345678);
    expected.front() = expected.back() = 0;
    atEachVectorLevel([&] {
        Words drawn(count + 2);
        fillSpan(drawn.data() + 1, 0x12345678, count);
        ASSERT_EQ(drawn, expected);
    });
}

TEST(SpanKernels, turnPicturesOfEverySizeAsThePlainRuleDoes)
{
    std::mt19937 random(20268);
    for (std::size_t width = 0; width <= 35; ++width) {
        for (std::size_t height = 0; height <= 35; ++height) {
            Words picture(width * height);
            std::generate(picture.begin(), picture.end(), std::ref(random));
            Words expected(picture.size());
            const QuarterTurn turn { reinterpret_cast<const std::uint8_t*>(picture.data()),
                static_cast<std::ptrdiff_t>(4 * width), expected.data(),
                static_cast<std::ptrdiff_t>(height), width, height };
            plainSpanKernels.quarterTurn(turn);
            atEachVectorLevel([&] {
                Words turned(picture.size());
                QuarterTurn again = turn;
                again.to = turned.data();
                turnSquares(again);
                ASSERT_EQ(turned, expected) << width << " x " << height;
            });
        }
    }
}

TEST(SpanKernels, blendEveryByteExactly)
{
    Words canvas(65536);
    Words colours(65536);
    for (std::uint32_t opacity = 0; opacity < 256; ++opacity) {
        Words expected(65536);
        for (std::uint32_t i = 0; i < 65536; ++i) {
            canvas[i] = 0xA5000000 | (i & 255) << 16 | (i & 255) << 8 | (~i & 255);
            colours[i] = opacity << 24 | (i >> 8) << 16 | (~(i >> 8) & 255) << 8 | i >> 8;
            expected[i] = plainBlend(canvas[i], colours[i], opacity);
        }
        atEachVectorLevel([&] {
            Words drawn = canvas;
            blendSpan(
                drawn.data(), reinterpret_cast<const std::uint8_t*>(colours.data()), drawn.size());
            ASSERT_EQ(drawn, expected) << "opacity " << opacity;
        });
    }
}

} // namespace kez::test
