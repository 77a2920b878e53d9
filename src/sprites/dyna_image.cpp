// SPDX-License-Identifier: MIT
#include "sprites/dyna_image.h"

#include "core/little_endian.h"

namespace kez {

DynaImage::DynaImage(const char* name, bool shown)
    : Image(name, shown)
{
}

DynaImage::DynaImage(const DynaImage& other)
    : Image(other)
    , record_(other.record_)
{
    // The sprite that was copied lies in the other's record.
    if (other.pixels() != nullptr)
        borrowSprite(record_, name().c_str(), RecordOwner::Object, true);
}

DynaImage* DynaImage::clone() const
{
    return new DynaImage(*this);
}

const String& DynaImage::className() const
{
    static const String own("DynaImage");
    return own;
}

void DynaImage::realize()
{
    adoptRecord(nullptr, false);
}

void DynaImage::setRecord(const std::uint8_t* record)
{
    adoptRecord(record, false);
}

void DynaImage::adoptRecord(const std::uint8_t* record, bool keepPlacement)
{
    if (record != nullptr)
        record_ = std::vector(record, record + loadWord(record));
    if (!record_.empty())
        borrowSprite(record_, name().c_str(), RecordOwner::Object, keepPlacement);
}

} // namespace kez
