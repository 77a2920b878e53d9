// SPDX-License-Identifier: MIT
/// Whether pictures and sounds are all that the screens and the guide ask for, and whether the
/// pictures lie where the screens look for them. Places are told as a drawing program tells them:
/// from the upper left corner of the 640 × 480 sheet.
#pragma once

#include "activity/content_needs.h"
#include "findings.h"
#include "media/archive_block.h"

#include <span>
#include <string>

namespace kez::tools {

void checkPictures(
    const ContentNeeds& needs, std::span<const ArchiveRecord> records, Findings& findings);

/// `folder` holds the .wv5 files; `song` is the name of one more sound.
void checkSounds(const ContentNeeds& needs, const std::string& song, const std::string& folder,
    Findings& findings);

} // namespace kez::tools
