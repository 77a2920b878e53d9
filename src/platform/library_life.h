// SPDX-License-Identifier: MIT
/// The end of the library's life in its program.
#pragma once

namespace kez::platform {

/// Calls `hook` once, before the library's static objects are destroyed: when it is unloaded or
/// when the program ends. (Objects first used after this call may be gone before it at the
/// program's end.) One hook; a later one takes the place of an earlier.
void onLibraryUnload(void (*hook)());

} // namespace kez::platform
