// SPDX-License-Identifier: MIT
/// A font for texts: one GDI font handle, made from the name of a face and a size in points, or the
/// system's stock fixed-pitch font when neither is given.
#pragma once

#include "display/graphic.h"

#include <windows.h>

namespace kez {

struct FontStyle {
    int orientation = 0; ///< Tenths of a degree.
    bool italic = false;
    bool underline = false;
    int weight = 0; ///< 400 normal, 700 bold; 0 lets the system choose.
};

class Font : public Object {
public:
    /// Creates the handle at once. Null or "" as face name and 0 points: the stock font.
    Font(const char* faceName, int pointSize, const FontStyle& style, Colour textColour);
    ~Font() override; ///< Deletes the handle.
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    const String& className() const override;

    void createHandle(); ///< Anew, from the fields.

    [[nodiscard]] HFONT handle() const { return handle_; } ///< Null when it could not be created.

    String faceName;
    int pointSize;
    Colour textColour; ///< Offered to a text that takes this font.
    FontStyle style;

private:
    HFONT handle_ = nullptr;
};

/// The module's one default font, the stock one. Every new text has it.
Font& defaultFont();

} // namespace kez
