// SPDX-License-Identifier: MIT
/// An archive file opened by a command: its block and its records.
#pragma once

#include "media/archive_block.h"
#include "user_error.h"

#include <string>
#include <utility>

namespace kez::tools {

struct OpenArchive {
    ByteBlock block;
    ArchiveRecords list;
};

/// Throws UserError. Damage inside is the caller's to report (`list.fault`).
inline OpenArchive openArchive(const std::string& path)
{
    ArchiveBlock file = readArchiveBlock(path);
    if (!file.block)
        throw UserError(path + ": "
            + (file.fault.empty() ? "the file cannot be read; is the name spelt right?"
                                  : file.fault));
    OpenArchive archive { std::move(file.block), {} };
    archive.list = listRecords(archive.block.bytes());
    return archive;
}

} // namespace kez::tools
