// SPDX-License-Identifier: MIT
// Every blitter, at first in families beside the peers, then each on its own.
#include "bench_support.h"
#include "libyuv_peers.h"
#include "sprites/blit.h"
#include "sprites/random_sprite.h"

#include <algorithm>

namespace kez::bench {

namespace {

using test::PlainSprite;
using test::RandomShape;
using test::RandomSprite;
using test::Spread;
using SharedSprite = std::shared_ptr<const RandomSprite>;

SharedSprite makeSprite(const RandomShape& shape)
{
    test::Random random(20265);
    return std::make_shared<RandomSprite>(shape, random);
}

std::string sizeName(int width, int height)
{
    return std::to_string(width) + "x" + std::to_string(height);
}

void addSprite(const std::string& name, const SharedSprite& sprite, const SpritePlacement& place)
{
    addOurs(
        name,
        [=](Canvas canvas) {
            drawSprite({ canvas.data(), canvasWidth, canvasHeight }, sprite->parts(), place);
        },
        [=](Canvas canvas) {
            plainDraw({ canvas.data(), canvasWidth, canvasHeight }, sprite->meaning(), place);
        });
}

SpritePlacement inTheMiddle(const SharedSprite& sprite, int angle = 0)
{
    return { 0, 0, sprite->meaning().width, sprite->meaning().height, angle };
}

PixelView viewOf(const SharedSprite& sprite)
{
    return { sprite->pixels().data(), sprite->meaning().width, sprite->meaning().height };
}

// The pixels as a library with a transparent colour wants them: 0 where none is stored.
PixelView keyed(const SharedSprite& sprite, CanvasMemory& memory)
{
    memory = sprite->pixels();
    for (std::size_t i = 0; i < memory.size(); ++i)
        memory[i] = sprite->meaning().stored[i] == 0 ? 0 : memory[i] | 0xFF000001;
    return { memory.data(), sprite->meaning().width, sprite->meaning().height };
}

/// Blends by a table of all products, pixel by pixel: how machines without vectors did it.
class TableLoop : public Peer {
public:
    TableLoop(Canvas canvas, const PlainSprite& sprite)
        : canvas_(canvas)
        , sprite_(sprite)
        , products_(256 * 256)
    {
        for (std::uint32_t i = 0; i < products_.size(); ++i)
            products_[i] = (i >> 8) * (i & 255);
    }

    void draw() override
    {
        const int left = (canvasWidth - sprite_.width) / 2;
        const int top = (canvasHeight - sprite_.height) / 2;
        std::size_t from = 0;
        for (int y = 0; y < sprite_.height; ++y) {
            std::uint32_t* const to = canvas_.data() + (top + y) * canvasWidth + left;
            for (int x = 0; x < sprite_.width; ++x, ++from) {
                if (sprite_.stored[from] != 0 && sprite_.opacities[from] != 0)
                    to[x] = blended(to[x], sprite_.colours[from], sprite_.opacities[from]);
            }
        }
    }

private:
    [[nodiscard]] std::uint32_t blended(
        std::uint32_t canvas, std::uint32_t colour, std::uint32_t opacity) const
    {
        if (opacity == 255)
            return colour;
        const std::uint32_t* const own = &products_[opacity << 8];
        const std::uint32_t* const rest = &products_[(255 - opacity) << 8];
        std::uint32_t result = canvas & 0xFF000000;
        for (int shift = 0; shift < 24; shift += 8)
            result |= (own[colour >> shift & 255] + rest[canvas >> shift & 255]) >> 8 << shift;
        return result;
    }

    Canvas canvas_;
    const PlainSprite& sprite_;
    std::vector<std::uint32_t> products_;
};

constexpr std::pair<int, int> sizes[] = { { 640, 480 }, { 300, 200 }, { 80, 54 } };

void addRaw()
{
    for (const auto& [width, height] : sizes) {
        const std::string size = sizeName(width, height);
        const auto opaque = makeSprite({ width, height });
        addSprite("copy/" + size, opaque, inTheMiddle(opaque));
        addMemcpy("copy/" + size, width, height);
        addPeer("copy/" + size + "/SDL2",
            [=](Canvas canvas) { return sdlBlit(canvas, viewOf(opaque), PeerBlit::Copy); });
        addPeer("copy/" + size + "/pixman",
            [=](Canvas canvas) { return pixmanBlit(canvas, viewOf(opaque), PeerBlit::Copy); });

        for (const Spread spread : { Spread::Drawn, Spread::Soft }) {
            const auto sprite = makeSprite({ width, height, 32, SpriteMode::Raw, true, spread });
            const std::string name
                = (spread == Spread::Soft ? "blend/soft/" : "blend/drawn/") + size;
            addSprite(name, sprite, inTheMiddle(sprite));
            addMemcpy(name, width, height);
            addPeer(name + "/SDL2",
                [=](Canvas canvas) { return sdlBlit(canvas, viewOf(sprite), PeerBlit::Blend); });
            addPeer(name + "/pixman",
                [=](Canvas canvas) { return pixmanBlit(canvas, viewOf(sprite), PeerBlit::Blend); });
            addPeer(
                name + "/libyuv", [=](Canvas canvas) { return yuvBlend(canvas, viewOf(sprite)); });
        }
    }
}

std::size_t storedPixels(const SharedSprite& sprite)
{
    const std::vector<std::uint8_t>& stored = sprite->meaning().stored;
    return static_cast<std::size_t>(std::count(stored.begin(), stored.end(), 1));
}

void addTableLoop(const std::string& name, const SharedSprite& sprite)
{
    addPeer(name + "/table",
        [=](Canvas canvas) { return std::make_unique<TableLoop>(canvas, sprite->meaning()); });
}

void addRuns()
{
    for (const auto& [width, height] : sizes) {
        for (const bool hasAlpha : { false, true }) {
            const std::string name
                = (hasAlpha ? "runs/opacity/" : "runs/opaque/") + sizeName(width, height);
            const auto sprite
                = makeSprite({ width, height, 32, SpriteMode::ShortRuns, hasAlpha, Spread::Drawn });
            addSprite(name, sprite, inTheMiddle(sprite));
            addMemcpyOf(name, storedPixels(sprite));
            if (hasAlpha)
                addTableLoop(name, sprite);
            const auto memory = std::make_shared<CanvasMemory>();
            const PixelView view = keyed(sprite, *memory);
            addPeer(name + "/SDL2_RLE", [=](Canvas canvas) {
                static_cast<void>(memory);
                return hasAlpha ? sdlRuns(canvas, viewOf(sprite), PeerBlit::Blend)
                                : sdlRuns(canvas, view, PeerBlit::Copy);
            });
        }
    }
}

void addPalette()
{
    for (const auto& [width, height] : sizes) {
        const std::string size = sizeName(width, height);
        const auto sprite = makeSprite({ width, height, 8 });
        addSprite("palette/opaque/" + size, sprite, inTheMiddle(sprite));
        addMemcpy("palette/opaque/" + size, width, height);
        const SpriteParts parts = sprite->parts();
        const std::uint8_t* const indices = parts.sprite->pixels();
        std::vector<std::uint8_t> colours(1024);
        std::copy_n(parts.palette->colours(), 4 * parts.palette->count(), colours.begin());
        const std::vector<std::uint8_t> own(indices, indices + width * height);
        addPeer("palette/opaque/" + size + "/SDL2",
            [=](Canvas canvas) { return sdlPalette(canvas, own, width, height, colours.data()); });
        const auto soft = makeSprite({ width, height, 8, SpriteMode::Raw, true, Spread::Drawn });
        addSprite("palette/opacity/" + size, soft, inTheMiddle(soft));
        addTableLoop("palette/opacity/" + size, soft);
        addMemcpy("palette/opacity/" + size, width, height);
    }
}

void addScaled()
{
    struct Case {
        int width, height, displayedWidth, displayedHeight;
    };

    for (const Case& one :
        { Case { 320, 240, 640, 480 }, Case { 300, 200, 437, 291 }, Case { 640, 480, 300, 225 } }) {
        const std::string name = "scaled/" + sizeName(one.width, one.height) + "_to_"
            + sizeName(one.displayedWidth, one.displayedHeight);
        const auto sprite = makeSprite({ one.width, one.height });
        addSprite(name, sprite, { 0, 0, one.displayedWidth, one.displayedHeight, 0 });
        addMemcpy(name, one.displayedWidth, one.displayedHeight);
        addPeer(name + "/SDL2", [=](Canvas canvas) {
            return sdlScaled(canvas, viewOf(sprite), one.displayedWidth, one.displayedHeight);
        });
        addPeer(name + "/libyuv", [=](Canvas canvas) {
            return yuvScaled(canvas, viewOf(sprite), one.displayedWidth, one.displayedHeight);
        });
    }
}

// Turning and drawing the turned sprite: both are in the time.
void addTurned()
{
    for (const int angle : { 90, 180, 270 }) {
        for (const auto& [width, height] : { std::pair { 480, 480 }, std::pair { 300, 200 } }) {
            const std::string name
                = "turned/" + std::to_string(angle) + "/" + sizeName(width, height);
            const auto sprite = makeSprite({ width, height });
            addSprite(name, sprite, inTheMiddle(sprite, angle));
            addMemcpy(name, width, height);
        }
    }
}

// The turn alone, into memory.
void addQuarterTurn()
{
    for (const auto& [width, height] : { std::pair { 640, 480 }, std::pair { 300, 200 } }) {
        const std::string name = "quarterTurn/" + sizeName(width, height);
        const auto sprite = makeSprite({ width, height });
        const test::PlainSprite expected = plainTurn(sprite->meaning(), 90);
        addOurs(
            name, [=](Canvas canvas) { turn(*blitSource(sprite->parts()), 90, canvas.data()); },
            [=](Canvas canvas) {
                std::copy(expected.colours.begin(), expected.colours.end(), canvas.begin());
            });
        addMemcpyOf(name, expected.colours.size());
        addPeer(name + "/libyuv", [=](Canvas) { return yuvTurn(viewOf(sprite)); });
    }
}

void addEveryKind()
{
    constexpr const char* modes[] = { "raw", "short", "long" };
    for (const int bits : { 8, 16, 32 }) {
        for (const SpriteMode mode :
            { SpriteMode::Raw, SpriteMode::ShortRuns, SpriteMode::LongRuns }) {
            for (const bool hasAlpha : { false, true }) {
                const auto sprite = makeSprite({ 300, 200, bits, mode, hasAlpha });
                const std::string name = "every/" + std::to_string(bits) + "/"
                    + modes[static_cast<std::size_t>(mode)] + (hasAlpha ? "/opacity" : "/opaque");
                addSprite(name + "/unscaled", sprite, inTheMiddle(sprite));
                addSprite(name + "/clipped", sprite, { 300, 200, 300, 200, 0 });
                addSprite(name + "/scaled", sprite, { 0, 0, 437, 291, 0 });
                addSprite(name + "/turned", sprite, inTheMiddle(sprite, 90));
            }
        }
    }
}

const bool areAdded = [] {
    addRaw();
    addRuns();
    addPalette();
    addScaled();
    addTurned();
    addQuarterTurn();
    addEveryKind();
    return true;
}();

} // namespace

} // namespace kez::bench
