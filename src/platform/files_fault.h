// SPDX-License-Identifier: MIT
/// The faults that tests plan (`files::Fault`), as the operations meet them. Each sets the last
/// error when it answers no.
#pragma once

#include <cstdint>

namespace kez::files::fault {

[[nodiscard]] bool mayWrite(std::uint64_t bytes);
[[nodiscard]] bool mayCommit();
[[nodiscard]] bool mayRename();
[[nodiscard]] bool mayRemove();

} // namespace kez::files::fault
