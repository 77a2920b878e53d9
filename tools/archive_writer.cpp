// SPDX-License-Identifier: MIT
#include "archive_writer.h"

#include "dif1_encoder.h"
#include "media/dif1.h"
#include "platform/files.h"
#include "progress.h"
#include "user_error.h"

namespace kez::tools {

ArchiveSize writeArchive(const std::string& path,
    const std::vector<std::vector<std::uint8_t>>& records, ArchiveForm form)
{
    std::vector<std::uint8_t> bytes;
    for (const auto& record : records)
        bytes.insert(bytes.end(), record.begin(), record.end());
    const std::size_t unpacked = bytes.size();
    if (unpacked > files::largestRead)
        throw UserError(path + ": the records have " + std::to_string(unpacked)
            + " bytes. Readers take 1 GiB, and no compressed archive can announce more than "
              "65,535 x 65,535; leave some out or make pictures smaller");
    if (form == ArchiveForm::Compressed) {
        Progress progress("compressing " + path);
        const std::size_t size = bytes.size();
        auto compressed
            = compressArchive(bytes, [&](std::size_t done) { progress.at(done, size); });
        if (!compressed)
            throw UserError(path + ": too large to be compressed; use --raw");
        // Noise grows in the code; readers take either form.
        if (compressed->size() < bytes.size() || isDif1(bytes))
            bytes = std::move(*compressed);
    }
    if (!files::write(path, bytes))
        throw UserError(path + ": the file cannot be written; is there room and the right to?");
    return { bytes.size(), unpacked };
}

} // namespace kez::tools
