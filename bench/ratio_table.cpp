// SPDX-License-Identifier: MIT
#include "ratio_table.h"

#include <algorithm>
#include <cstdio>

namespace kez::bench {

namespace {

struct Goal {
    std::string name;
    std::string peer; // empty for microseconds
    double limit;
};

std::vector<Goal>& goals()
{
    static std::vector<Goal> all;
    return all;
}

const char own[] = "kez";

double median(std::vector<double> times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

const Goal* goalOf(const std::string& name, const std::string& peer)
{
    const auto found = std::find_if(goals().begin(), goals().end(),
        [&](const Goal& goal) { return goal.name == name && goal.peer == peer; });
    return found == goals().end() ? nullptr : &*found;
}

void printTime(const std::string& name, double microseconds)
{
    std::printf("%-44s %10.2f us", name.c_str(), microseconds);
}

} // namespace

void addGoal(const std::string& name, const std::string& peer, double ratio)
{
    goals().push_back({ name, peer, ratio });
}

void addTimeGoal(const std::string& name, double microseconds)
{
    addGoal(name, "", microseconds);
}

bool RatioTable::ReportContext(const Context&)
{
    return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        const std::string name = run.run_name.function_name
            + (run.run_name.args.empty() ? "" : "/" + run.run_name.args);
        if (run.error_occurred) {
            failures_.push_back(name + ": " + run.error_message);
            continue;
        }
        const std::size_t slash = name.rfind('/');
        const std::string one = name.substr(0, slash);
        if (cases_.count(one) == 0)
            order_.push_back(one);
        const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        cases_[one][slash == std::string::npos ? own : name.substr(slash + 1)].push_back(
            1e6 * seconds);
    }
}

std::optional<double> RatioTable::medianOf(const std::string& name, const std::string& peer) const
{
    const auto found = cases_.find(name);
    if (found == cases_.end() || found->second.count(peer) == 0)
        return std::nullopt;
    return median(found->second.at(peer));
}

void RatioTable::printCase(const std::string& name, const Peers& peers) const
{
    const std::optional<double> ours = medianOf(name, own);
    if (!ours) {
        for (const auto& [peer, times] : peers) {
            printTime(name + "/" + peer, median(times));
            std::printf("\n");
        }
        return;
    }
    printTime(name, *ours);
    if (const Goal* const goal = goalOf(name, ""))
        std::printf("  (at most %.0f us%s)", goal->limit, *ours > goal->limit ? ", MISSED" : "");
    for (const auto& [peer, times] : peers) {
        if (peer == own)
            continue;
        const double ratio = *ours / median(times);
        std::printf("  %.2f of %s", ratio, peer.c_str());
        if (const Goal* const goal = goalOf(name, peer))
            std::printf(" (at most %.2f%s)", goal->limit, ratio > goal->limit ? ", MISSED" : "");
    }
    std::printf("\n");
}

void RatioTable::printGoals() const
{
    std::size_t met = 0;
    std::size_t missed = 0;
    for (const Goal& goal : goals()) {
        const std::optional<double> ours = medianOf(goal.name, own);
        const std::optional<double> limit
            = goal.peer.empty() ? std::optional(1.0) : medianOf(goal.name, goal.peer);
        if (!ours || !limit)
            continue;
        (*ours <= goal.limit * *limit ? met : missed) += 1;
    }
    std::printf("%zu goals met, %zu missed, %zu not measured in this run\n", met, missed,
        goals().size() - met - missed);
}

bool RatioTable::print() const
{
    std::printf("Medians of CPU time; ratios within this run.\n");
    for (const std::string& name : order_)
        printCase(name, cases_.at(name));
    printGoals();
    for (const std::string& failure : failures_)
        std::printf("FAILED %s\n", failure.c_str());
    return failures_.empty();
}

} // namespace kez::bench
