// SPDX-License-Identifier: MIT
#include "camera_source.h"

namespace kez::player {
