// SPDX-License-Identifier: MIT
#include "core/flags.h"
#include "platform/library_life.h"

namespace kez {

namespace {

// Static objects are destroyed after this, in an order that nobody controls: from now on they leave
// each other alone.
void stopUnregistering()
{
    quitting = true;
}

struct AtLoad {
    AtLoad() { platform::onLibraryUnload(stopUnregistering); }
};

const AtLoad atLoad;

} // namespace

} // namespace kez
