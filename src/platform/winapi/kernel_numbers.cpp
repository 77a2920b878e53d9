// SPDX-License-Identifier: MIT
#include "winbase.h"

#include <cstdint>

int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    const std::int64_t product = std::int64_t { number } * numerator;
    const std::int64_t divisor = denominator;
    const std::int64_t half = (divisor < 0 ? -divisor : divisor) / 2;
    const std::int64_t rounded = (product < 0 ? product - half : product + half) / divisor;
    return rounded == static_cast<int>(rounded) ? static_cast<int>(rounded) : -1;
}
