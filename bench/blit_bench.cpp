// SPDX-License-Identifier: MIT
// Every blitter, at first in families beside the peers, then each on its own.
#include "bench_support.h"
#include "sprites/random_sprite.h"

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

        for (const Spread spread : { Spread::Sprite, Spread::Soft }) {
            const auto sprite = makeSprite({ width, height, 32, SpriteMode::Raw, true, spread });
            const std::string name
                = (spread == Spread::Soft ? "blend/soft/" : "blend/sprite/") + size;
            addSprite(name, sprite, inTheMiddle(sprite));
            addMemcpy(name, width, height);
            addPeer(name + "/SDL2",
                [=](Canvas canvas) { return sdlBlit(canvas, viewOf(sprite), PeerBlit::Blend); });
            addPeer(name + "/pixman",
                [=](Canvas canvas) { return pixmanBlit(canvas, viewOf(sprite), PeerBlit::Blend); });
        }
    }
}

void addRuns()
{
    for (const auto& [width, height] : sizes) {
        for (const bool hasAlpha : { false, true }) {
            const std::string name
                = (hasAlpha ? "runs/opacity/" : "runs/opaque/") + sizeName(width, height);
            const auto sprite = makeSprite({ width, height, 32, SpriteMode::ShortRuns, hasAlpha });
            addSprite(name, sprite, inTheMiddle(sprite));
            addMemcpy(name, width, height);
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
        const auto soft = makeSprite({ width, height, 8, SpriteMode::Raw, true });
        addSprite("palette/opacity/" + size, soft, inTheMiddle(soft));
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
    addEveryKind();
    return true;
}();

} // namespace

} // namespace kez::bench
