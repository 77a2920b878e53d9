// SPDX-License-Identifier: MIT
// How the time grows with the number of records, items, nodes and tasks: Google Benchmark fits the
// growth of each. `--benchmark_filter=growth` runs these alone.
#include "core/clock.h"
#include "core/list.h"
#include "core/task.h"
#include "display/canvas.h"
#include "display/graphic.h"
#include "display/view.h"
#include "media/resource_archive.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <climits>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace kez::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

std::string recordName(std::int64_t number)
{
    return "picture" + std::to_string(number) + ".sp5";
}

// Records of the size of a header: what is measured is the directory.
Bytes archiveOf(std::int64_t records)
{
    constexpr std::uint32_t recordBytes = 64;
    Bytes bytes(static_cast<std::size_t>(records) * recordBytes);
    for (std::int64_t i = 0; i < records; ++i) {
        std::uint8_t* record = &bytes[static_cast<std::size_t>(i) * recordBytes];
        std::memcpy(record, &recordBytes, sizeof recordBytes);
        const std::string name = recordName(i);
        std::memcpy(record + 4, name.c_str(), name.size());
    }
    return bytes;
}

/// An archive file of so many records.
class ArchiveFile {
public:
    explicit ArchiveFile(std::int64_t records) { (void)files::write(path(), archiveOf(records)); }

    [[nodiscard]] std::string path() const { return folder_ / "many.wad"; }

private:
    test::TemporaryFolder folder_;
};

void openArchive(benchmark::State& state)
{
    const ArchiveFile file(state.range(0));
    for (auto pass : state) {
        static_cast<void>(pass);
        ResourceArchive archive(file.path().c_str(), nullptr);
        if (archive.count() != state.range(0))
            state.SkipWithError("records are missing");
    }
    state.SetComplexityN(state.range(0));
}

void findRecord(benchmark::State& state)
{
    const ArchiveFile file(state.range(0));
    ResourceArchive archive(file.path().c_str(), nullptr);
    std::vector<std::string> names;
    for (int i = 0; i < 256; ++i)
        names.push_back(recordName(state.range(0) * i / 256));
    std::size_t next = 0;
    for (auto pass : state) {
        static_cast<void>(pass);
        if (archive.find(names[next++ % names.size()].c_str()) == nullptr)
            state.SkipWithError("a record is not found");
    }
    state.SetComplexityN(state.range(0));
}

/// An item that draws nothing, so that the walk is measured, and that is hit nowhere but at the
/// very back.
class Item final : public Graphic {
public:
    explicit Item(int itemDepth)
        : Graphic({ .depth = itemDepth, .width = 4, .height = 4 }, true, 0)
    {
    }

    bool hitTest(int, int) const override { return depth == INT_MAX; }

    void draw() override { benchmark::DoNotOptimize(depth); }
};

/// One view with so many items, all of one depth but the last to be picked.
class Items {
public:
    explicit Items(std::int64_t count)
        : view_(0, 0, 0, 0, 0, true, true)
    {
        view_.attach();
        for (std::int64_t i = 0; i < count; ++i) {
            items_.push_back(std::make_unique<Item>(i == 0 ? INT_MAX : 0));
            view_.layer(0).addToLayer(*items_.back());
        }
    }

    ~Items() { items_.clear(); }

    [[nodiscard]] View& view() { return view_; }

    void shuffleDepths()
    {
        for (const auto& item : items_)
            item->depth = static_cast<int>(random_() % 1000);
    }

private:
    View view_;
    std::vector<std::unique_ptr<Item>> items_;
    std::mt19937 random_ { 5 };
};

void drawItems(benchmark::State& state)
{
    Items items(state.range(0));
    openTarget();
    for (auto pass : state) {
        static_cast<void>(pass);
        items.view().draw();
    }
    closeTarget();
    state.SetComplexityN(state.range(0));
}

void pickItem(benchmark::State& state)
{
    Items items(state.range(0));
    for (auto pass : state) {
        static_cast<void>(pass);
        if (pick(0, 0) == nullptr)
            state.SkipWithError("nothing is picked");
    }
    state.SetComplexityN(state.range(0));
}

void sortItems(benchmark::State& state)
{
    Items items(state.range(0));
    for (auto pass : state) {
        static_cast<void>(pass);
        state.PauseTiming();
        items.shuffleDepths();
        state.ResumeTiming();
        items.view().layer(0).sortLayer();
    }
    state.SetComplexityN(state.range(0));
}

void sortSortedItems(benchmark::State& state)
{
    Items items(state.range(0));
    for (auto pass : state) {
        static_cast<void>(pass);
        items.view().layer(0).sortLayer();
    }
    state.SetComplexityN(state.range(0));
}

std::unique_ptr<List> listOf(std::int64_t count)
{
    auto list = std::make_unique<List>();
    for (std::int64_t i = 0; i < count; ++i)
        list->appendRef(nullptr);
    return list;
}

void appendNodes(benchmark::State& state)
{
    for (auto pass : state) {
        static_cast<void>(pass);
        std::unique_ptr<List> list = listOf(state.range(0));
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void nodesByPosition(benchmark::State& state)
{
    const std::unique_ptr<List> list = listOf(state.range(0));
    std::uint32_t place = 1;
    for (auto pass : state) {
        static_cast<void>(pass);
        place = place * 1664525 + 1013904223;
        benchmark::DoNotOptimize(list->at(static_cast<int>(place % state.range(0))));
    }
    state.SetComplexityN(state.range(0));
}

// All of them, from the front: the worst order for an index.
void unlinkNodes(benchmark::State& state)
{
    for (auto pass : state) {
        static_cast<void>(pass);
        state.PauseTiming();
        const std::unique_ptr<List> list = listOf(state.range(0));
        std::vector<std::unique_ptr<List>> unlinked;
        unlinked.reserve(static_cast<std::size_t>(state.range(0)));
        state.ResumeTiming();
        while (list->first() != nullptr) {
            unlinked.emplace_back(list->first());
            unlinked.back()->unlink();
        }
        state.PauseTiming();
        unlinked.clear();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void clearList(benchmark::State& state)
{
    for (auto pass : state) {
        static_cast<void>(pass);
        state.PauseTiming();
        const std::unique_ptr<List> list = listOf(state.range(0));
        state.ResumeTiming();
        list->clear();
    }
    state.SetComplexityN(state.range(0));
}

class SleepingTask final : public Task {
protected:
    TaskBody run() override
    {
        for (;;)
            co_await sleep(0);
    }
};

void runTasks(benchmark::State& state)
{
    std::vector<std::unique_ptr<SleepingTask>> tasks;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        tasks.push_back(std::make_unique<SleepingTask>());
        tasks.back()->attach();
    }
    for (auto pass : state) {
        static_cast<void>(pass);
        ++frameTime; // all are due
        runDueTasks();
    }
    state.SetComplexityN(state.range(0));
}

void attachAndDetachTasks(benchmark::State& state)
{
    std::vector<std::unique_ptr<SleepingTask>> tasks;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        tasks.push_back(std::make_unique<SleepingTask>());
    for (auto pass : state) {
        static_cast<void>(pass);
        for (const auto& task : tasks)
            task->attach();
        for (const auto& task : tasks)
            task->detach();
    }
    state.SetComplexityN(state.range(0));
}

template <int least, int most>
void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(10)->Range(least, most)->Unit(benchmark::kMicrosecond)->Complexity();
}

BENCHMARK(openArchive)->Name("growth/archive/open")->Apply(sizes<100, 100'000>);
BENCHMARK(findRecord)->Name("growth/archive/find")->Apply(sizes<100, 100'000>);
BENCHMARK(drawItems)->Name("growth/items/draw")->Apply(sizes<10, 10'000>);
BENCHMARK(pickItem)->Name("growth/items/pick")->Apply(sizes<10, 10'000>);
BENCHMARK(sortItems)->Name("growth/items/sort")->Apply(sizes<10, 10'000>);
BENCHMARK(sortSortedItems)->Name("growth/items/sort again")->Apply(sizes<10, 10'000>);
BENCHMARK(appendNodes)->Name("growth/list/append")->Apply(sizes<10, 1'000'000>);
BENCHMARK(nodesByPosition)->Name("growth/list/at")->Apply(sizes<10, 1'000'000>);
BENCHMARK(unlinkNodes)->Name("growth/list/unlink")->Apply(sizes<10, 1'000'000>);
BENCHMARK(clearList)->Name("growth/list/clear")->Apply(sizes<10, 1'000'000>);
BENCHMARK(runTasks)->Name("growth/tasks/run")->Apply(sizes<1, 10'000>);
BENCHMARK(attachAndDetachTasks)->Name("growth/tasks/attach and detach")->Apply(sizes<1, 10'000>);

} // namespace

} // namespace kez::bench
