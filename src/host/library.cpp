// SPDX-License-Identifier: MIT
#include "core/flags.h"
#include "input/window_hook.h"
#include "platform/library_life.h"

namespace kez {

namespace {

// Static objects are destroyed after this, in an order that nobody controls: from now on they leave
// each other alone. A host that let the library go without `release` gets its window back; what was
// made from its DirectX objects goes with those, for they may be gone by now.
void prepareUnload()
{
    quitting = true;
    if (!platform::isAloneAtTheEnd())
        removeHook();
}

struct AtLoad {
    AtLoad() { platform::onLibraryUnload(prepareUnload); }
};

const AtLoad atLoad;

} // namespace

} // namespace kez
