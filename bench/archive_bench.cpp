// SPDX-License-Identifier: MIT
// Opening an archive: the compressed stream beside LZ4, libdeflate, zlib and a copy on the same
// bytes, and the whole of `open` with a lookup. Bytes are drawn like sprites, or are our own
// content if it is made.
#include "media/archive_block.h"
#include "media/dif1.h"
#include "media/resource_archive.h"
#include "platform/files.h"
#include "tools/dif1_encoder.h"

#include <benchmark/benchmark.h>
#include <libdeflate.h>
#include <lz4.h>
#include <lz4hc.h>
#include <zlib.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace kez::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

// 32-bit pixels in stretches of one colour, of gradients and of noise, with rows that repeat.
Bytes spriteLikeBytes(std::size_t size)
{
    std::mt19937 random(3);
    Bytes bytes;
    while (bytes.size() < size) {
        const std::size_t kind = random() % 4;
        const std::size_t count = 4 * (1 + random() % 50);
        const std::size_t start = bytes.size();
        const auto value = static_cast<std::uint8_t>(random());
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint8_t flat = i % 4 == 3 ? 255 : static_cast<std::uint8_t>(value + i % 4);
            if (kind == 0)
                bytes.push_back(flat);
            else if (kind == 1)
                bytes.push_back(i % 4 == 3 ? 255 : static_cast<std::uint8_t>(flat + i / 8));
            else if (kind == 2 && start > 2560)
                bytes.push_back(bytes[bytes.size() - 2560]);
            else
                bytes.push_back(i % 4 == 3 ? 255 : static_cast<std::uint8_t>(flat + random() % 8));
        }
    }
    bytes.resize(size);
    return bytes;
}

void add(const std::string& name, std::size_t packed, const Bytes& plain, auto&& unpack)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        Bytes block(plain.size());
        if (!unpack(block) || block != plain) {
            state.SkipWithError("does not give the same bytes");
            return;
        }
        for (auto pass : state) {
            static_cast<void>(pass);
            unpack(block);
            benchmark::ClobberMemory();
        }
        state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations())
            * static_cast<std::int64_t>(plain.size()));
        state.counters["packed %"]
            = 100.0 * static_cast<double>(packed) / static_cast<double>(plain.size());
    });
}

void addLz4(const std::string& name, const Bytes& plain, auto&& pack)
{
    const auto size = static_cast<int>(plain.size());
    Bytes packed(static_cast<std::size_t>(LZ4_compressBound(size)));
    packed.resize(static_cast<std::size_t>(pack(reinterpret_cast<const char*>(plain.data()),
        reinterpret_cast<char*>(packed.data()), size, static_cast<int>(packed.size()))));
    add(name, packed.size(), plain, [packed](Bytes& block) {
        return LZ4_decompress_safe(reinterpret_cast<const char*>(packed.data()),
                   reinterpret_cast<char*>(block.data()), static_cast<int>(packed.size()),
                   static_cast<int>(block.size()))
            >= 0;
    });
}

void addUnpacking(const std::string& name, const Bytes& plain)
{
    add(name + "/memcpy", plain.size(), plain, [plain](Bytes& block) {
        std::memcpy(block.data(), plain.data(), block.size());
        return true;
    });
    const Bytes dif1 = tools::encodeDif1(plain);
    add(name + "/kez", dif1.size(), plain,
        [dif1](Bytes& block) { return expandDif1(dif1, block) == nullptr; });

    addLz4(name + "/LZ4", plain, [](const char* from, char* to, int size, int room) {
        return LZ4_compress_default(from, to, size, room);
    });
    addLz4(name + "/LZ4_high", plain, [](const char* from, char* to, int size, int room) {
        return LZ4_compress_HC(from, to, size, room, LZ4HC_CLEVEL_MAX);
    });

    uLongf zlibSize = compressBound(static_cast<uLong>(plain.size()));
    Bytes zlib(zlibSize);
    compress2(zlib.data(), &zlibSize, plain.data(), static_cast<uLong>(plain.size()), 9);
    zlib.resize(zlibSize);
    add(name + "/zlib", zlib.size(), plain, [zlib](Bytes& block) {
        uLongf size = static_cast<uLongf>(block.size());
        return uncompress(block.data(), &size, zlib.data(), static_cast<uLong>(zlib.size()))
            == Z_OK;
    });
    const std::shared_ptr<libdeflate_decompressor> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    add(name + "/libdeflate", zlib.size(), plain, [zlib, decompressor](Bytes& block) {
        return libdeflate_zlib_decompress(decompressor.get(), zlib.data(), zlib.size(),
                   block.data(), block.size(), nullptr)
            == LIBDEFLATE_SUCCESS;
    });
}

void addOpening(const std::string& path)
{
    benchmark::RegisterBenchmark("archive/open_and_find/kez", [path](benchmark::State& state) {
        for (auto pass : state) {
            static_cast<void>(pass);
            ResourceArchive archive(path.c_str(), nullptr);
            benchmark::DoNotOptimize(archive.find("camBack.sp5"));
        }
    });
}

const bool added = [] {
    constexpr std::size_t fourMiB = 4u << 20;
    addUnpacking("unpack/4MiB", spriteLikeBytes(fourMiB));
    const std::string content = KEZ_BENCH_ARCHIVE;
    if (files::exists(content)) {
        const ArchiveBlock archive = readArchiveBlock(content);
        addUnpacking(
            "unpack/content", Bytes(archive.block.bytes().begin(), archive.block.bytes().end()));
        addOpening(content);
    }
    return true;
}();

} // namespace

} // namespace kez::bench
