// SPDX-License-Identifier: MIT
#include "record_check.h"

#include "sprite_pixels.h"
#include "sprites/sprite_record.h"

namespace kez::tools {

namespace {

constexpr std::string_view spriteExtension = ".sp5";
constexpr const char* remedy = "; pack it anew from its picture";

bool isSprite(const ArchiveRecord& record)
{
    return normalisedRecordName(record.name).ends_with(spriteExtension);
}

// The record that the sprite names; null when it names none. A fault when there is none.
const ArchiveRecord* companion(std::span<const ArchiveRecord> records, const ArchiveRecord& sprite,
    const char* name, const char* what, Findings& findings)
{
    if (name == nullptr)
        return nullptr;
    const ArchiveRecord* found = recordNamed(records, name);
    if (found == nullptr)
        findings.faults.push_back(
            sprite.name + ": its " + what + " \"" + name + "\" is not in the archive" + remedy);
    return found;
}

void checkPalette(std::span<const ArchiveRecord> records, const ArchiveRecord& record,
    const SpriteView& sprite, Findings& findings)
{
    if (sprite.pixelBits() == 8 && sprite.paletteName() == nullptr)
        findings.faults.push_back(record.name + ": it has 8 bits and names no palette" + remedy);
    const ArchiveRecord* found
        = companion(records, record, sprite.paletteName(), "palette", findings);
    const char* reason = nullptr;
    if (found != nullptr && !PaletteView::parse(found->bytes, sprite, reason))
        findings.faults.push_back(record.name + ": " + reason + remedy);
}

void checkPlane(std::span<const ArchiveRecord> records, const ArchiveRecord& record,
    const SpriteView& sprite, Findings& findings)
{
    if (sprite.pixelBits() != 32 && sprite.hasAlpha() && sprite.alphaName() == nullptr)
        findings.faults.push_back(
            record.name + ": it is to be drawn with opacity and names no plane for it" + remedy);
    const ArchiveRecord* found
        = companion(records, record, sprite.alphaName(), "opacity plane", findings);
    const char* reason = nullptr;
    if (found != nullptr && !AlphaView::parse(found->bytes, sprite, reason))
        findings.faults.push_back(record.name + ": " + reason + remedy);
}

void checkSprite(
    std::span<const ArchiveRecord> records, const ArchiveRecord& record, Findings& findings)
{
    const char* reason = nullptr;
    const auto sprite = SpriteView::parse(record.bytes, reason);
    if (!sprite) {
        findings.faults.push_back(record.name + ": " + reason + remedy);
        return;
    }
    if (!sprite->isDrawable())
        findings.faults.push_back(
            record.name + ": it has no pixels, or they are stored in an unknown way" + remedy);
    if (sprite->pixelBits() == 16)
        findings.faults.push_back(
            record.name + ": it has 16 bits a pixel, which no screen shows rightly" + remedy);
    checkPalette(records, record, *sprite, findings);
    checkPlane(records, record, *sprite, findings);
}

} // namespace

void checkRecords(const ArchiveRecords& list, Findings& findings)
{
    if (!list.fault.empty())
        findings.faults.push_back(
            list.fault + "; the file is damaged: copy it afresh, or pack it anew");
    for (const ArchiveRecord& record : list.records) {
        if (recordNamed(list.records, record.name) != &record)
            findings.faults.push_back(
                record.name + ": there are two of that name, and only the first is found");
        else if (isSprite(record))
            checkSprite(list.records, record, findings);
    }
}

} // namespace kez::tools
