// SPDX-License-Identifier: MIT
#include "activity/export_popup.h"

#include "activity/activity_screen.h"
#include "activity/picture_export.h"
#include "input/events.h"

namespace kez {

ExportPopup& exportPopup()
{
    static ExportPopup popup;
    return popup;
}

ExportPopup::ExportPopup()
    : Popup("exportPop")
    , jpegButton_("exportJPGroll", false)
    , bmpButton_("exportBMProll", false)
{
    addButtons({ &jpegButton_, &bmpButton_ });
}

void ExportPopup::open(const char* pictureName, const char* exportName)
{
    pictureName_ = pictureName;
    exportName_ = exportName;
    if (exportName_.empty())
        exportName_ = pictureName_;
    enter();
}

void ExportPopup::leave()
{
    if (isOpen())
        playTap();
    Popup::leave();
}

void ExportPopup::clicked()
{
    if (isPicturePicked() || isPicked("bookHelpRoll"))
        return;
    // The trash buttons close the popup themselves, and for that click throw nothing away.
    if (isPicked("camTrashRoll") || isPicked("bookTrashRoll"))
        return;
    if (pickedItem == &jpegButton_)
        exportPicture(pictureName_, exportName_, "JPG");
    else if (pickedItem == &bmpButton_)
        exportPicture(pictureName_, exportName_, "BMP");
    leave();
}

void openExport(const char* pictureName, const char* exportName)
{
    exportPopup().open(pictureName, exportName);
}

bool isExportOpen()
{
    return exportPopup().isOpen();
}

bool closeExport()
{
    const bool wasOpen = isExportOpen();
    exportPopup().leave();
    return wasOpen;
}

} // namespace kez
