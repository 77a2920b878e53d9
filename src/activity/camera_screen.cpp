// SPDX-License-Identifier: MIT
#include "activity/camera_screen.h"

#include "activity/camera_slots.h"
#include "activity/export_popup.h"
#include "activity/guide.h"
#include "activity/import_popup.h"
#include "activity/photo_book.h"
#include "activity/picture_names.h"
#include "activity/picture_view.h"
#include "activity/stored_files.h"
#include "activity/stored_pictures.h"
#include "core/flags.h"
#include "input/events.h"
#include "sprites/picture_pixels.h"

#include <utility>
#include <vector>

namespace kez {

namespace {

constexpr int cellWidth = 82;
constexpr int cellHeight = 54;
constexpr int columnX[] = { -234, -130, -24, 81, 183 };
constexpr int rowY[] = { -168, -96, -26, 43 };

constexpr int stepsPerTick = 5; // of the camera link
constexpr std::uint32_t stepMs = 40;

constexpr auto cellPositions = cellCentres(columnX, rowY, CellOrder::Rows);
static_assert(cellPositions.size() == slotCount);

} // namespace

CameraScreen& cameraScreen()
{
    static CameraScreen screen;
    return screen;
}

CameraScreen::CameraScreen()
    : backdrop_("camBack", true)
    , importButton_("camImportRoll", false)
    , exportButton_("camExportRoll", false)
    , returnButton_("camReturnRoll", false)
    , trashButton_("camTrashRoll", false)
    , helpButton_("camHelpRoll", false)
    , saveButton_("camSaveRoll", false)
    , cameraButton_("camRoll", false)
    , bookButton_("camBookRoll", false)
    , busyFrames_ { Image("wait00", true), Image("wait01", true), Image("wait02", true),
        Image("wait03", true), Image("wait04", true), Image("wait05", true), Image("wait06", true),
        Image("wait07", true), Image("wait08", true) }
{
    buttons_ = { { &exportButton_, clip::exportPicture }, { &returnButton_, clip::giveBack },
        { &importButton_, clip::importPicture }, { &trashButton_, clip::trash },
        { &helpButton_, clip::help }, { &saveButton_, clip::save },
        { &cameraButton_, clip::camera }, { &bookButton_, clip::book } };
    face_.addBearer(backdrop_);
    face_.addBearer(helpButton_);
}

GridLayout CameraScreen::layout()
{
    return { cellWidth, cellHeight, cellPositions };
}

std::vector<Image*> CameraScreen::images()
{
    return { &importButton_, &exportButton_, &returnButton_, &trashButton_, &backdrop_,
        &cameraButton_, &bookButton_, &helpButton_, &saveButton_ };
}

void CameraScreen::enter()
{
    returnButton_.visible = false;
    retestRoom = true;
    unsavedPictures = false;
    pictureArrived_ = false;
    grid_.deselect();
    grid_.setup(cellWidth, cellHeight, cellPositions, { color1, -3 }, { black, -2 });
    hoveredButton_ = nullptr;
    grid_.enter();
    camera().start(cameraHandler, this);
    for (int cell = 0; cell < slotCount; ++cell)
        paintCell(nullptr, cell);
    resetSlots();
    attach();
    for (Image& frame : busyFrames_)
        frame.realize();
}

void CameraScreen::leave()
{
    closePopup();
    pictureView().leave();
    grid_.leave();
    camera().stop();
    detach();
    for (Image& frame : busyFrames_)
        frame.unrealize();
    cursorObject = &pointer_;
}

TaskBody CameraScreen::run()
{
    co_await sleep(1);
    for (;;) {
        tellOfFiles();
        busyStep();
        co_await sleep(stepMs);
        introduceOnce();
        if (retestRoom) {
            hasRoomNow = hasRoom(0);
            retestRoom = false;
        }
    }
}

// It has gone into the photo book, where the child will find it.
int CameraScreen::showImported()
{
    return clip::imported;
}

void CameraScreen::busyStep()
{
    if (++stepCounter_ == stepsPerTick) {
        stepCounter_ = 0;
        camera().tick();
        lookForPicture();
    } else if (camera().isUploading()) {
        advanceBusyPointer();
    }
}

void CameraScreen::lookForPicture()
{
    if (!std::exchange(pictureArrived_, false)) {
        // A download that ends without a picture, because the camera is gone, ends the waiting too.
        if (shownBusyFrame() >= 0 && !camera().isDownloading() && !camera().isUploading())
            cursorObject = &pointer_;
        return;
    }
    if (picturesTaken() == slotCount) {
        camera().requestErase();
        badSound_.play(false);
    } else {
        const int slot = storeTakenPicture(camera().image());
        paintCell(camera().image(), slot);
        shutterSound_.play(false);
    }
    cursorObject = &pointer_;
}

void CameraScreen::advanceBusyPointer()
{
    const auto next = static_cast<std::size_t>(shownBusyFrame() + 1) % busyFrames_.size();
    cursorObject = &busyFrames_[next];
}

int CameraScreen::shownBusyFrame() const
{
    for (std::size_t i = 0; i < busyFrames_.size(); ++i)
        if (cursorObject == &busyFrames_[i])
            return static_cast<int>(i);
    return -1;
}

int CameraScreen::cameraHandler(Camera& camera, int notification, void* screen)
{
    if (notification != Camera::PictureUploaded || camera.isUploading())
        return 0;
    if (!camera.isDownloading())
        camera.issue(Camera::SetCounter, 0);
    static_cast<CameraScreen*>(screen)->pictureArrived_ = true;
    return 0;
}

void CameraScreen::buttonPressed()
{
    if (hoveredButton_ != nullptr)
        tap();
    if (hoveredButton_ == &helpButton_)
        enterHelpMode();
    else if (hoveredButton_ == &cameraButton_)
        fetchPictures();
    else if (hoveredButton_ == &saveButton_)
        requestSave();
    else if (hoveredButton_ == &trashButton_)
        deleteSelected();
    else if (hoveredButton_ == &returnButton_)
        goTo(SaveDialog::Destination::Host);
    else if (hoveredButton_ == &exportButton_)
        exportSelected();
    else if (hoveredButton_ == &importButton_)
        importFile();
    else if (hoveredButton_ == &bookButton_)
        goTo(SaveDialog::Destination::PhotoBook);
}

// Without room nothing could be saved anyway.
void CameraScreen::goTo(SaveDialog::Destination destination)
{
    if (unsavedPictures && hasRoomNow)
        saveDialog().ask(destination);
    else
        goOnTo(destination);
}

void CameraScreen::goOnTo(SaveDialog::Destination destination)
{
    if (destination == SaveDialog::Destination::PhotoBook)
        switchTo(photoBook());
    else
        giveBack();
}

void CameraScreen::importFile()
{
    grid_.deselect();
    openImport();
}

void CameraScreen::fetchPictures()
{
    if (picturesTaken() < slotCount && camera().isReady())
        camera().requestDownloadAll();
    else
        badSound_.play(false);
}

void CameraScreen::exportSelected()
{
    const int cell = grid_.selectedIndex();
    if (cell < 0)
        return sayGuide(clip::exportPicture);
    String fileName;
    makeNumberedName(fileName, "Export", findFreeExportNumber());
    openExport(temporaryName(cell + 1).c_str(), fileName.c_str());
}

// A cell without a picture cannot be selected.
void CameraScreen::gridClicked()
{
    const int cell = grid_.selectedIndex();
    if (grid_.click() == ThumbnailGrid::Click::SelectedCell) {
        tap();
        pictureView().open(temporaryName(cell + 1).c_str(), cell, grid_);
        grid_.deselect();
    } else if (cell >= 0 && !cameraSlot(cell).taken) {
        grid_.deselect();
    } else {
        tap();
    }
}

void CameraScreen::deleteSelected()
{
    const int cell = grid_.selectedIndex();
    if (closeExport() || cell < 0)
        return;
    forgetSlot(cell);
    paintCell(nullptr, cell);
    grid_.deselect();
    trashSound_.play(false);
}

void CameraScreen::giveBack()
{
    const int cell = grid_.selectedIndex();
    handOverPicture(cell >= 0 ? temporaryName(cell + 1).c_str() : nullptr);
}

void CameraScreen::paintCell(const std::uint8_t* picture, int cell)
{
    const StagePoint& place = grid_.position(cell);
    if (picture == nullptr)
        return backdrop_.fillPixels(color3, place.x, place.y, cellWidth, cellHeight);
    constexpr int pixels = Camera::pictureWidth * Camera::pictureHeight;
    std::vector<std::uint32_t> opaque(pixels);
    toOpaquePixels(picture, opaque.data(), pixels);
    backdrop_.pastePixels(opaque.data(), Camera::pictureWidth, Camera::pictureHeight, place.x,
        place.y, cellWidth, cellHeight);
}

} // namespace kez
