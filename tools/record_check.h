// SPDX-License-Identifier: MIT
/// Whether the records of an archive are sound in themselves, whoever asks for them: all that the
/// program checks when it opens the archive and loads a sprite.
#pragma once

#include "findings.h"
#include "media/archive_block.h"

namespace kez::tools {

void checkRecords(const ArchiveRecords& list, Findings& findings);

} // namespace kez::tools
