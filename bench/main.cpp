// SPDX-License-Identifier: MIT
// kez-bench: every benchmark with its repetitions in random order, the table of ratios on the
// standard output, and all single times as JSON. What Google Benchmark takes is taken as well.
#include "core/vector_level.h"
#include "ratio_table.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

const char help[] = "usage: kez-bench [--short] [--level=plain|sse2|avx2] [--benchmark_...]\n\n"
                    "Times our own loops beside those of peer libraries and prints ratios.\n\n"
                    "  --short   three brief repetitions instead of nine\n"
                    "  --level=  keeps to instructions of this level; the default is the best one\n"
                    "  --benchmark_filter=, --benchmark_out= and the like are Google Benchmark's;\n"
                    "            the JSON file is kez-bench.json unless told otherwise\n";

struct Options {
    bool isShort = false;
    bool wantsHelp = false;
    std::vector<std::string> others;
};

bool takeLevel(const std::string& argument)
{
    const std::string level = argument.substr(std::strlen("--level="));
    if (level == "plain")
        kez::limitVectorLevel(kez::VectorLevel::Plain);
    else if (level == "sse2")
        kez::limitVectorLevel(kez::VectorLevel::Sse2);
    else if (level == "avx2")
        kez::limitVectorLevel(kez::VectorLevel::Avx2);
    else
        return false;
    return true;
}

bool take(const std::string& argument, Options& options)
{
    if (argument == "--short")
        options.isShort = true;
    else if (argument == "--help" || argument == "-h")
        options.wantsHelp = true;
    else if (argument.rfind("--level=", 0) == 0)
        return takeLevel(argument);
    else
        options.others.push_back(argument);
    return true;
}

// Ours first, so that the user's own win.
std::vector<std::string> benchmarkArguments(const char* program, const Options& options)
{
    std::vector<std::string> arguments = { program, "--benchmark_enable_random_interleaving=true",
        options.isShort ? "--benchmark_repetitions=3" : "--benchmark_repetitions=9",
        options.isShort ? "--benchmark_min_time=0.02" : "--benchmark_min_time=0.2",
        "--benchmark_out=kez-bench.json", "--benchmark_out_format=json" };
    arguments.insert(arguments.end(), options.others.begin(), options.others.end());
    return arguments;
}

// Google Benchmark keeps a pointer to the program's name.
bool initialize(std::vector<std::string>& arguments)
{
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    bool isUnderstood = true;
    for (int i = 1; i < argc; ++i)
        isUnderstood = take(argv[i], options) && isUnderstood;
    if (options.wantsHelp || !isUnderstood) {
        std::fputs(help, isUnderstood ? stdout : stderr);
        return isUnderstood ? 0 : 2;
    }
    std::vector<std::string> arguments = benchmarkArguments(argv[0], options);
    if (!initialize(arguments))
        return 2;
    std::printf("Vectors: %s. The table comes at the end, after a few minutes.\n",
        kez::nameOf(kez::vectorLevel()));
    std::fflush(stdout);
    kez::bench::RatioTable table;
    if (benchmark::RunSpecifiedBenchmarks(&table) == 0)
        return 2;
    return table.print() ? 0 : 1;
}
