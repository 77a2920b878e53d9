// SPDX-License-Identifier: MIT
/// The photo store keeps the children's pictures: in the camera screen's slots while they are
/// unsaved, and on disk under the data path. A picture called N has up to three files: photo\N.cam
/// (Targa), clipboard\N.clip (a raw 60 × 45 thumbnail) and mask\N.mask (one bit a pixel). There is
/// one store per module. Every file it writes or deletes is counted in `diskUsed`.
///
/// Pictures are width × height pixels of three bytes, blue, green, red, bottom row first.
#pragma once

#include "activity/album.h"
#include "activity/camera_slots.h"
#include "activity/key_colours.h"
#include "activity/picture_names.h"
#include "activity/stored_files.h"
#include "activity/stored_pictures.h"
#include "activity/thumbnail.h"
