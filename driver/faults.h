// SPDX-License-Identifier: MIT
/// Misbehaviour on request: how many more times each kind happens.
#pragma once

#include <array>
#include <string_view>

namespace kez::driver {

enum class Fault {
    Busy,
    Refusing,
    Silent,
    TooManyLines,
    NegativeLines,
    LongLines,
    BadExposure,
    Unplugged, ///< Counts the calls until it happens, once.
};

class Faults {
public:
    /// False when no fault has this name. A negative count means for ever.
    bool set(std::string_view name, int count);

    /// Whether it happens now; counts this occasion.
    [[nodiscard]] bool happens(Fault fault);

    /// Whether the cable is pulled at this call.
    [[nodiscard]] bool cablePulled();

private:
    static constexpr int kinds = 8;

    int& left(Fault fault) { return left_[static_cast<std::size_t>(fault)]; }

    std::array<int, kinds> left_ {};
};

} // namespace kez::driver
