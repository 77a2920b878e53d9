// SPDX-License-Identifier: MIT
#include "sound_delta_search.h"

#include <algorithm>
#include <limits>

namespace kez::tools {

namespace {

constexpr int values = 256;
constexpr int silence = 128;
constexpr int runMark = 255; // No escape tells this value.
constexpr float never = std::numeric_limits<float>::infinity();
constexpr std::size_t blockSamples = 8192; // Bounds the memory; a cut costs next to nothing.

using Prices = std::array<float, values>;

/// How the cheapest way to each value came there, for one sample.
struct Origin {
    std::array<std::uint8_t, values> from; ///< The value before, of a way that ends in a code.
    std::array<std::uint8_t, values> code;
    std::array<bool, values> runGoesOn; ///< The way that ends in a run was one already.
    std::array<bool, values> leftRun; ///< The cheaper way to this value ends in a run.
};

class Search {
public:
    Search(const DeltaTable& table, const DeltaPrices& prices)
        : table_(table)
        , prices_(prices)
        , origins_(blockSamples)
    {
    }

    /// Appends a block's steps and returns the value that they end on.
    int append(std::span<const std::uint8_t> samples, int start, std::vector<DeltaStep>& steps)
    {
        best_.fill(never);
        running_.fill(never);
        best_[static_cast<std::size_t>(start)] = 0;
        for (std::size_t i = 0; i < samples.size(); ++i)
            advance(samples[i], origins_[i]);
        return trace(samples.size(), steps);
    }

private:
    void advance(int target, Origin& origin)
    {
        rebase();
        reach(origin);
        for (std::size_t value = 0; value < values; ++value) {
            const float miss = static_cast<float>(static_cast<int>(value) - target);
            const float error = miss * miss;
            const float started = best_[value] + prices_.run;
            origin.runGoesOn[value] = running_[value] <= started;
            running_[value] = std::min(running_[value], started) + error;
            const float coded = reached_[value] + error;
            origin.leftRun[value] = running_[value] < coded;
            best_[value] = std::min(running_[value], coded);
        }
    }

    /// Prices count from the cheapest on, or they would outgrow what a float tells apart.
    void rebase()
    {
        const float base = *std::ranges::min_element(best_);
        for (float& price : best_)
            price -= base;
        for (float& price : running_)
            price -= base;
    }

    /// The price of coming to every value by a code or an escape, without the error.
    void reach(Origin& origin)
    {
        const auto cheapest = std::ranges::find(best_, 0.0f) - best_.begin();
        reached_.fill(prices_.escape);
        reached_[runMark] = never;
        origin.from.fill(static_cast<std::uint8_t>(cheapest));
        origin.code.fill(DeltaStep::escape);
        // From a value that is dearer than this, an escape from the cheapest one does better.
        const float limit = prices_.escape - prices_.code;
        for (int from = 0; from < values; ++from) {
            const float price = best_[static_cast<std::size_t>(from)];
            if (price <= limit)
                reachFrom(from, price + prices_.code, origin);
        }
    }

    void reachFrom(int from, float price, Origin& origin)
    {
        for (std::size_t code = 0; code < deltaCodes; ++code) {
            const auto to
                = static_cast<std::size_t>(std::clamp(from + table_[code], 0, values - 1));
            if (price < reached_[to]) {
                reached_[to] = price;
                origin.from[to] = static_cast<std::uint8_t>(from);
                origin.code[to] = static_cast<std::uint8_t>(code);
            }
        }
    }

    int trace(std::size_t count, std::vector<DeltaStep>& steps)
    {
        const auto end = static_cast<std::uint8_t>(std::ranges::min_element(best_) - best_.begin());
        const std::size_t first = steps.size();
        steps.resize(first + count);
        std::uint8_t value = end;
        bool inRun = false;
        for (std::size_t i = count; i-- > 0;) {
            const Origin& origin = origins_[i];
            inRun = inRun || origin.leftRun[value];
            if (inRun) {
                steps[first + i] = { DeltaStep::run, value };
                inRun = origin.runGoesOn[value];
            } else {
                steps[first + i] = { origin.code[value], value };
                value = origin.from[value];
            }
        }
        return end;
    }

    const DeltaTable& table_;
    const DeltaPrices prices_;
    Prices best_ {}; ///< Of the cheapest way to each value.
    Prices running_ {}; ///< Of the cheapest that ends in a run.
    Prices reached_ {};
    std::vector<Origin> origins_;
};

} // namespace

DeltaPrices pricesOfBits(float bitPrice)
{
    constexpr float codeBits = 4;
    constexpr float escapeBits = 12;
    constexpr float runBits = 20;
    return { codeBits * bitPrice, escapeBits * bitPrice, runBits * bitPrice };
}

std::vector<DeltaStep> searchDeltas(
    std::span<const std::uint8_t> samples, const DeltaTable& table, const DeltaPrices& prices)
{
    std::vector<DeltaStep> steps;
    if (samples.empty())
        return steps;
    steps.reserve(samples.size() - 1);
    Search search(table, prices);
    int value = silence;
    for (std::size_t i = 1; i < samples.size(); i += blockSamples) {
        const std::size_t count = std::min(blockSamples, samples.size() - i);
        value = search.append(samples.subspan(i, count), value, steps);
    }
    return steps;
}

} // namespace kez::tools
