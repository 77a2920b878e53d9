// SPDX-License-Identifier: MIT
/// The result of a run as a table: our median time in each case, as ratios to the medians of the
/// peers that stand beside it, with the goals.
///
/// Benchmarks belong together by name: "<case>/kez" is ours, "<case>/<peer>" a peer's. What has no
/// peer is listed with its time alone.
#pragma once

#include "goals.h"

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace kez::bench {

/// Collects the repetitions of every benchmark and prints nothing before `print`.
class RatioTable : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// Prints the table, the goals missed and what failed. False when a benchmark failed.
    [[nodiscard]] bool print() const;

private:
    using Peers = std::map<std::string, std::vector<double>>; // CPU times in microseconds

    void printCase(const std::string& name, const Peers& peers) const;
    [[nodiscard]] std::optional<double> medianOf(
        const std::string& name, const std::string& peer) const;
    void printGoals() const;

    std::vector<std::string> order_; // of the cases
    std::map<std::string, Peers> cases_;
    std::vector<std::string> failures_;
};

} // namespace kez::bench
