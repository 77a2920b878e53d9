// SPDX-License-Identifier: MIT
/// The export popup: the child chooses the form, JPEG or BMP, in which a stored picture is written
/// into the directory "export", where other programs find it.
#pragma once

#include "activity/popup.h"
#include "core/string.h"

namespace kez {

class ExportPopup : public Popup {
public:
    ExportPopup();

    /// An empty export name: the file takes the picture's name.
    void open(const char* pictureName, const char* exportName);
    void leave() override;

private:
    void clicked() override;

    Image jpegButton_;
    Image bmpButton_;
    String pictureName_;
    String exportName_;
};

ExportPopup& exportPopup();

void openExport(const char* pictureName, const char* exportName);
[[nodiscard]] bool isExportOpen();
bool closeExport(); ///< Returns whether it was open: the trash buttons then do nothing else.

} // namespace kez
