// SPDX-License-Identifier: MIT
/// The module-wide flags and counters. They are written by the entry points and the store and read
/// by everything; only the host's thread touches them.
#pragma once

#include <cstdint>

namespace kez {

inline bool opened = false; ///< Between `Kez::open` and `Kez::close`.
inline bool running = false; ///< Between `Kez::run` and the `Kez::process` call that ends the run.
inline bool finishing = false; ///< A picture has been handed back; the next `process` ends the run.
inline bool freshRun = false; ///< A run has started and no screen has been entered since.
inline bool guideIntro = false; ///< The host asked `Kez::run` for the guide's introduction.
inline bool introduced = false; ///< The guide has introduced the activity; never cleared.
inline bool suspended = false; ///< Frames and input are ignored.

/// The module is on its way out: services and views no longer touch registries and lists, because
/// static objects are destroyed in an order that nobody controls.
inline bool quitting = false;

/// `Kez::release` has ended: destroying a `List` no longer deletes what it owns.
inline bool shuttingDown = false;

/// Bytes that the run may add to the disk, and bytes that it has added so far. Every file that the
/// activity writes, copies or deletes is counted.
inline std::int32_t diskBudget = 0;
inline std::int32_t diskUsed = 0;

/// The host's four colours, unchanged (see `Kez::initialize` for what each paints).
inline std::uint32_t color1 = 0;
inline std::uint32_t color2 = 0;
inline std::uint32_t color3 = 0;
inline std::uint32_t color4 = 0;

} // namespace kez
