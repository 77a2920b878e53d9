// SPDX-License-Identifier: MIT
/// A line on standard error every second while a long piece of work goes on; none for short work,
/// and none when nobody sits at the terminal, unless it was asked for.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string>

#include <unistd.h>

namespace kez::tools {

inline bool progressWanted = isatty(STDERR_FILENO) != 0; ///< `--progress` sets it.

class Progress {
public:
    explicit Progress(std::string what)
        : what_(std::move(what))
    {
    }

    void at(std::size_t done, std::size_t all)
    {
        const auto now = std::chrono::steady_clock::now();
        if (!progressWanted || now < next_)
            return;
        next_ = now + std::chrono::seconds(1);
        std::fprintf(stderr, "kez: %s: %zu of %zu\n", what_.c_str(), done, all);
    }

private:
    std::string what_;
    std::chrono::steady_clock::time_point next_
        = std::chrono::steady_clock::now() + std::chrono::seconds(1);
};

} // namespace kez::tools
