// SPDX-License-Identifier: MIT
/// An image whose sprite record is made while the program runs: it owns a copy of the record and
/// shows it until it is destroyed or given another.
#pragma once

#include "sprites/image.h"

#include <cstdint>
#include <vector>

namespace kez {

class DynaImage : public Image {
public:
    DynaImage(const char* name, bool visible);
    DynaImage* clone() const override; ///< With its own copy of the record.
    const String& className() const override;
    void realize() override; ///< Takes its placement from its own record again.

    virtual void setRecord(const std::uint8_t* record); ///< Slot 22: `adoptRecord(record, false)`.

    /// Slot 23: copies the record, as long as its first word says; without one the own record
    /// stays. Takes the placement from it unless told to keep it, and the palette and alpha records
    /// that it names from the archive. A malformed record is reported and shows nothing.
    virtual void adoptRecord(const std::uint8_t* record, bool keepPlacement);

    [[nodiscard]] int recordSize() const { return static_cast<int>(record_.size()); } ///< Bytes.

protected:
    DynaImage(const DynaImage& other);

private:
    std::vector<std::uint8_t> record_;
};

} // namespace kez
