// SPDX-License-Identifier: MIT
#include "faults.h"

#include <algorithm>

namespace kez::driver {

namespace {

constexpr std::string_view names[] = { "busy", "refusing", "silent", "too-many-lines",
    "negative-lines", "long-lines", "bad-exposure", "unplugged" };

} // namespace

bool Faults::set(std::string_view name, int count)
{
    const auto found = std::ranges::find(names, name);
    if (found == std::end(names))
        return false;
    const auto fault = static_cast<Fault>(found - names);
    // The cable goes with the call after the last one that works.
    left(fault) = fault == Fault::Unplugged && count > 0 ? count + 1 : count;
    return true;
}

bool Faults::happens(Fault fault)
{
    if (left(fault) > 0)
        return left(fault)-- > 0;
    return left(fault) < 0;
}

bool Faults::cablePulled()
{
    int& calls = left(Fault::Unplugged);
    return calls > 0 && --calls == 0;
}

} // namespace kez::driver
