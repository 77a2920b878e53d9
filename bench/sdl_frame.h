// SPDX-License-Identifier: MIT
/// The images of the display list as a program with SDL2 would draw them.
#pragma once

#include "blit_peers.h"

#include <memory>

namespace kez::bench {

/// Draws what the display list shows at this moment into a canvas of its own and converts that to
/// a display of 16 (565) or 24 bits; at 32 bits the canvas is the display.
std::unique_ptr<Peer> sdlFrame(int bits);

} // namespace kez::bench
