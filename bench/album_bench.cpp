// SPDX-License-Identifier: MIT
// The photo book with stores of three sizes: reading the album, reading and showing a page, beside
// a plain listing of the same folder. Each picture has its two files; the disk's cache is warm.
#include "activity/album.h"
#include "activity/photo_book.h"
#include "activity/picture_names.h"
#include "activity/thumbnail.h"
#include "core/clock.h"
#include "display/scene.h"
#include "input/events.h"
#include "media/resource_archive.h"
#include "platform/temporary_folder.h"
#include "sprites/sprite_builder.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace kez::bench {

namespace {

/// A store of so many pictures; at most 999 of them are numbered, the others have names.
class Store {
public:
    explicit Store(int pictures)
    {
        for (const char* directory : { "photo", "clipboard" })
            std::filesystem::create_directory(folder_ / directory);
        String name;
        for (int i = 1; i <= pictures; ++i) {
            if (i <= 999)
                makeNumberedName(name, "Photo", i);
            else
                name.format("n%d", i * 7919 % 100000);
            folder_.put("photo/" + std::string(name.view()) + ".cam", "x");
            folder_.put("clipboard/" + std::string(name.view()) + ".clip",
                std::string(clipBytes, static_cast<char>(i)));
        }
        setDataPath(folder_.path().c_str());
    }

    ~Store() { setDataPath(nullptr); }

    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    [[nodiscard]] std::string clipboard() const { return folder_ / "clipboard"; }

    /// A backdrop for the page to be painted into, as an archive holds it.
    void addBackdrop() const
    {
        const std::vector<std::uint32_t> pixels(640 * 480, 0xFF808080);
        SpriteRecord record;
        record.makeTrueColour("bookBack.sp5", 0, 0, 640, 480, pixels.data(), false);
        const std::vector<std::uint8_t> bytes = record.serialise();
        folder_.put("bookBack.sp5", std::string(bytes.begin(), bytes.end()));
        archive()->addFile((folder_ / "bookBack.sp5").c_str());
    }

private:
    test::TemporaryFolder folder_;
};

void listing(benchmark::State& state)
{
    const Store store(static_cast<int>(state.range(0)));
    for (auto pass : state) {
        static_cast<void>(pass);
        std::size_t names = 0;
        for (const auto& file : std::filesystem::directory_iterator(store.clipboard()))
            names += file.path().native().size();
        benchmark::DoNotOptimize(names);
    }
}

void scan(benchmark::State& state)
{
    const Store store(static_cast<int>(state.range(0)));
    for (auto pass : state) {
        static_cast<void>(pass);
        scanAlbum();
    }
    if (album().count() != state.range(0))
        state.SkipWithError("pictures are missing from the album");
}

// What a turn of the page costs: the album read anew, 24 thumbnails read and painted.
void openBook(benchmark::State& state)
{
    const Store store(static_cast<int>(state.range(0)));
    createArchive();
    store.addBackdrop();
    for (auto pass : state) {
        static_cast<void>(pass);
        switchTo(photoBook());
        performSwitch();
        endScene();
    }
    destroyArchive();
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(24)->Arg(1000)->Arg(5999)->Unit(benchmark::kMillisecond);
}

BENCHMARK(listing)->Name("album/plain listing")->Apply(sizes);
BENCHMARK(scan)->Name("album/scan/kez")->Apply(sizes);
BENCHMARK(openBook)->Name("album/open the book/kez")->Apply(sizes);

} // namespace

} // namespace kez::bench
