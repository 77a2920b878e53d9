// SPDX-License-Identifier: MIT
/// Memory for a photograph of many megapixels, which is written once from end to end. Where the
/// system has large pages it comes in those: most of the time for fresh memory goes into handing
/// it out page by page.
#pragma once

#include <cstddef>

namespace kez {

/// Bytes of no particular value; null when the system refuses them. Given back by `std::free`.
[[nodiscard]] void* allocateLarge(std::size_t bytes);

/// The pages that lie whole between these bytes are not needed before they are written again: what
/// they hold may be lost. The memory stays allocated.
void giveBack(void* memory, std::size_t bytes);

} // namespace kez
