// SPDX-License-Identifier: MIT
#include "sound_delta_encoder.h"

#include "media/delta4.h"
#include "sound_delta_search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace kez::tools {

namespace {

constexpr int silence = 128;
constexpr std::size_t longestRun = 255;
constexpr unsigned escapeCode = 15;
constexpr unsigned runMark = 255;

/// How often each difference is wanted, and the levels that serve them best.
class LevelFit {
public:
    /// `times` samples wanted the difference and were served by this code, each `miss` away.
    void want(std::size_t code, int difference, int miss, long times = 1)
    {
        sums_[code] += difference * times;
        counts_[code] += times;
        errors_[code] += miss * miss * times;
    }

    /// Each level moves into the middle of what it served; one that served nothing goes where most
    /// is missed.
    void move(DeltaTable& table) const
    {
        const auto worst
            = static_cast<std::size_t>(std::ranges::max_element(errors_) - errors_.begin());
        for (std::size_t code = 0; code < table.size(); ++code) {
            const std::size_t served = counts_[code] > 0 ? code : worst;
            if (counts_[served] > 0)
                table[code] = static_cast<int>(std::lround(
                    static_cast<double>(sums_[served]) / static_cast<double>(counts_[served])));
        }
        separate(table);
    }

private:
    // Two levels that are the same waste a code: the second takes the nearest free place.
    static void separate(DeltaTable& table)
    {
        constexpr int lowest = -128;
        constexpr int highest = 127;
        std::ranges::sort(table);
        for (int& level : table) {
            int away = 0;
            const auto isFree = [&](int place) {
                return place >= lowest && place <= highest
                    && std::count(table.begin(), table.end(), place) == 0;
            };
            level = std::clamp(level, lowest, highest);
            if (std::count(table.begin(), table.end(), level) < 2)
                continue;
            while (!isFree(level + away) && !isFree(level - away))
                ++away;
            level = isFree(level - away) ? level - away : level + away;
        }
    }

    std::array<long, deltaCodes> sums_ {};
    std::array<long, deltaCodes> counts_ {};
    std::array<long, deltaCodes> errors_ {};
};

std::size_t nearestLevel(const DeltaTable& table, int difference)
{
    std::size_t nearest = 0;
    for (std::size_t code = 1; code < table.size(); ++code)
        if (std::abs(table[code] - difference) < std::abs(table[nearest] - difference))
            nearest = code;
    return nearest;
}

/// Lloyd's method on the differences between neighbours.
DeltaTable firstTable(std::span<const std::uint8_t> samples)
{
    constexpr int rounds = 24;
    constexpr int span = 255;
    std::array<int, 2 * span + 1> histogram {};
    for (std::size_t i = 1; i < samples.size(); ++i)
        ++histogram[static_cast<std::size_t>(samples[i] - samples[i - 1] + span)];
    DeltaTable table { -64, -40, -24, -14, -8, -4, -2, 0, 2, 4, 8, 14, 24, 40, 64 };
    for (int round = 0; round < rounds; ++round) {
        LevelFit fit;
        for (int difference = -span; difference <= span; ++difference) {
            const std::size_t code = nearestLevel(table, difference);
            fit.want(code, difference, table[code] - difference,
                histogram[static_cast<std::size_t>(difference + span)]);
        }
        fit.move(table);
    }
    return table;
}

/// Fits the table to the codes that the search chose.
void refit(
    DeltaTable& table, std::span<const std::uint8_t> samples, std::span<const DeltaStep> steps)
{
    LevelFit fit;
    int before = silence;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (steps[i].code < deltaCodes)
            fit.want(steps[i].code, samples[i + 1] - before, samples[i + 1] - steps[i].value);
        before = steps[i].value;
    }
    fit.move(table);
}

double squaredError(std::span<const std::uint8_t> samples, std::span<const DeltaStep> steps)
{
    double sum = 0;
    for (std::size_t i = 0; i < steps.size(); ++i)
        sum += (samples[i + 1] - steps[i].value) * (samples[i + 1] - steps[i].value);
    return sum;
}

class NibbleWriter {
public:
    explicit NibbleWriter(const DeltaTable& table)
    {
        for (const int level : table)
            bytes_.push_back(static_cast<std::uint8_t>(level));
        bytes_.resize(delta4TableSize);
    }

    void nibble(unsigned code)
    {
        if (high_)
            bytes_.push_back(static_cast<std::uint8_t>(code << 4));
        else
            bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | code);
        high_ = !high_;
    }

    void byte(unsigned value)
    {
        nibble(value >> 4);
        nibble(value & 15);
    }

    std::vector<std::uint8_t> take() { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
    bool high_ = true;
};

std::vector<std::uint8_t> writeSteps(const DeltaTable& table, std::span<const DeltaStep> steps)
{
    NibbleWriter out(table);
    for (std::size_t i = 0; i < steps.size();) {
        const DeltaStep& step = steps[i];
        if (step.code == DeltaStep::run) {
            std::size_t count = 1;
            while (i + count < steps.size() && count < longestRun
                && steps[i + count].code == DeltaStep::run && steps[i + count].value == step.value)
                ++count;
            out.nibble(escapeCode);
            out.byte(runMark);
            out.byte(static_cast<unsigned>(count));
            i += count;
            continue;
        }
        out.nibble(step.code);
        if (step.code == DeltaStep::escape)
            out.byte(step.value);
        ++i;
    }
    return out.take();
}

/// A stream and how far it is from the sound.
struct Attempt {
    std::vector<std::uint8_t> stream;
    double error = std::numeric_limits<double>::infinity();

    void keepBetter(std::vector<std::uint8_t> other, double otherError)
    {
        if (otherError < error) {
            stream = std::move(other);
            error = otherError;
        }
    }
};

/// Closes in on the price of a bit at which escapes and runs just fit into the room.
Attempt tradeBits(std::span<const std::uint8_t> samples, const SoundProgress& progress)
{
    constexpr std::size_t passes = 9;
    constexpr std::size_t fittingPasses = 4;
    const std::size_t room = delta4TableSize + samples.size() / 2;
    DeltaTable table = firstTable(samples);
    Attempt best;
    float power = 1; // Of two.
    float change = 3;
    for (std::size_t pass = 0; pass < passes; ++pass) {
        const auto steps = searchDeltas(samples, table, pricesOfBits(std::exp2(power)));
        auto stream = writeSteps(table, steps);
        const bool fits = stream.size() <= room;
        if (fits)
            best.keepBetter(std::move(stream), squaredError(samples, steps));
        if (pass < fittingPasses)
            refit(table, samples, steps);
        power += fits ? -change : change;
        change *= 0.7f;
        if (progress)
            progress(pass + 1, passes);
    }
    return best;
}

/// One code for each sample, which always fits.
void tryCodesOnly(std::span<const std::uint8_t> samples, Attempt& best)
{
    constexpr int passes = 4;
    DeltaTable table = firstTable(samples);
    for (int pass = 0; pass < passes; ++pass) {
        const auto steps = searchDeltas(samples, table, codesOnly);
        best.keepBetter(writeSteps(table, steps), squaredError(samples, steps));
        refit(table, samples, steps);
    }
}

/// Whether less than 12 dB of the sound stands out of the error.
bool isPoor(const Attempt& attempt, std::span<const std::uint8_t> samples)
{
    constexpr double part = 16;
    double power = 0;
    for (const int sample : samples)
        power += (sample - silence) * (sample - silence);
    return attempt.error * part > power;
}

} // namespace

std::vector<std::uint8_t> encodeDelta4(
    std::span<const std::uint8_t> samples, const SoundProgress& progress)
{
    Attempt best = tradeBits(samples, progress);
    // Where every sample jumps, escapes never fit and runs are silence.
    if (isPoor(best, samples))
        tryCodesOnly(samples, best);
    return std::move(best.stream);
}

} // namespace kez::tools
