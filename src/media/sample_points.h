// SPDX-License-Identifier: MIT
/// Where the pixels of a resampled picture lie in its source, along one axis.
#pragma once

#include <vector>

namespace kez {

/// The sample points in source pixels: a step further each time; a point that reaches the last
/// pixel is set back to the one before it and goes on from there. Bit-exact, so never replaced by
/// products.
inline std::vector<double> samplePoints(
    int sourceSize, int destinationSize, double step, double start)
{
    std::vector<double> points(static_cast<std::size_t>(destinationSize));
    double point = start;
    for (double& slot : points) {
        slot = point;
        point += step;
        if (point >= sourceSize - 1)
            point = sourceSize - 2;
    }
    return points;
}

} // namespace kez
