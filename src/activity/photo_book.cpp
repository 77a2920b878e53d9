// SPDX-License-Identifier: MIT
#include "activity/photo_book.h"

#include "activity/album.h"
#include "activity/camera_screen.h"
#include "activity/export_popup.h"
#include "activity/guide.h"
#include "activity/import_popup.h"
#include "activity/key_colours.h"
#include "activity/picture_import.h"
#include "activity/picture_names.h"
#include "activity/picture_view.h"
#include "activity/stored_pictures.h"
#include "activity/thumbnail.h"
#include "core/flags.h"
#include "input/events.h"
#include "sprites/picture_pixels.h"

namespace kez {

namespace {

constexpr int cellWidth = 60;
constexpr int cellHeight = 44;
constexpr int columnX[] = { -236, -154, -72, 10, 92, 174 };
constexpr int rowY[] = { -176, -107, -36, 32 };
constexpr int clipPixels = clipWidth * clipHeight;
constexpr std::uint32_t stepMs = 250;

constexpr auto cellPositions = cellCentres(columnX, rowY, CellOrder::Columns);
static_assert(cellPositions.size() == BookPage::cells);

} // namespace

PhotoBook& photoBook()
{
    static PhotoBook book;
    return book;
}

PhotoBook::PhotoBook()
    : backdrop_("bookBack", true)
    , importButton_("bookImportRoll", false)
    , exportButton_("bookExportRoll", false)
    , returnButton_("bookReturnRoll", false)
    , trashButton_("bookTrashRoll", false)
    , helpButton_("bookHelpRoll", false)
    , saveButton_("bookSaveRoll", false)
    , leftButton_("bookLeftRoll", false)
    , rightButton_("bookRightRoll", false)
    , cameraButton_("bookCamRoll", false)
    , bookButton_("bookRoll", false)
{
    buttons_ = { { &exportButton_, clip::exportPicture }, { &returnButton_, clip::giveBack },
        { &importButton_, clip::importPicture }, { &trashButton_, clip::trash },
        { &helpButton_, clip::help }, { &saveButton_, clip::save },
        { &cameraButton_, clip::bookCamera }, { &bookButton_, clip::book },
        { &leftButton_, clip::turnPage }, { &rightButton_, clip::turnPage } };
    face_.addBearer(backdrop_);
    face_.addBearer(helpButton_);
}

GridLayout PhotoBook::layout()
{
    return { cellWidth, cellHeight, cellPositions };
}

std::vector<Image*> PhotoBook::images()
{
    return { &importButton_, &exportButton_, &returnButton_, &trashButton_, &backdrop_,
        &helpButton_, &saveButton_, &cameraButton_, &bookButton_, &leftButton_, &rightButton_ };
}

void PhotoBook::enter()
{
    returnButton_.visible = false;
    importDone = false;
    grid_.deselect();
    grid_.setup(cellWidth, cellHeight, cellPositions, { color1, -3 }, { color4, -2 });
    labels_.create(view_, grid_, color2);
    attach();
    grid_.enter();
    page_.open(0);
    showPage();
}

void PhotoBook::leave()
{
    detach();
    closePopup();
    pictureView().leave();
    grid_.leave();
    labels_.discard();
    page_.clear();
    selectedEntry_ = nullptr;
}

TaskBody PhotoBook::run()
{
    co_await sleep(1);
    for (;;) {
        tellOfFiles();
        co_await sleep(stepMs);
        introduceOnce();
    }
}

// At the album's end until it is sorted again.
int PhotoBook::showImported()
{
    String fileName = lastImportedName();
    addName(album(), fileName.append(".clip").view());
    page_.showLast();
    showPage();
    return clip::importedIntoBook;
}

void PhotoBook::gridClicked()
{
    if (grid_.click() == ThumbnailGrid::Click::Help) {
        if (page_.entry(grid_.selectedIndex()) != nullptr)
            explain(*pickedItem, clip::bookCell);
        return;
    }
    commitName();
    if (grid_.click() == ThumbnailGrid::Click::SelectedCell)
        openSelected();
    else if (grid_.click() == ThumbnailGrid::Click::Cell)
        cellClicked();
    else
        clickedElsewhere();
    labels_.startAnew();
}

void PhotoBook::openSelected()
{
    tap();
    pictureView().open(selectedName().c_str(), grid_.selectedIndex(), grid_);
    grid_.deselect();
}

// A cell without a picture cannot be selected.
void PhotoBook::cellClicked()
{
    currentCell_ = grid_.selectedIndex();
    selectedEntry_ = page_.entry(currentCell_);
    if (selectedEntry_ != nullptr)
        tap();
    else
        grid_.deselect();
}

void PhotoBook::clickedElsewhere()
{
    const bool isForSelected = hoveredButton_ == &trashButton_ || hoveredButton_ == &exportButton_
        || hoveredButton_ == &returnButton_;
    if (!isForSelected)
        clearSelection();
}

void PhotoBook::buttonPressed()
{
    if (hoveredButton_ == nullptr)
        return;
    tap();
    commitName();
    if (hoveredButton_ == &helpButton_)
        enterHelpMode();
    else if (hoveredButton_ == &exportButton_)
        exportSelected();
    else if (hoveredButton_ == &importButton_)
        importFile();
    else if (hoveredButton_ == &returnButton_)
        giveBack();
    else if (hoveredButton_ == &trashButton_)
        deleteSelected();
    else if (hoveredButton_ == &saveButton_)
        sayGuide(clip::nothingToSave);
    else if (hoveredButton_ == &cameraButton_)
        switchTo(cameraScreen());
    else if (hoveredButton_ == &leftButton_)
        turnPage(-1);
    else if (hoveredButton_ == &rightButton_)
        turnPage(+1);
}

void PhotoBook::turnPage(int direction)
{
    if (page_.turn(direction))
        showPage();
}

void PhotoBook::showPage()
{
    clearSelection();
    for (int cell = 0; cell < BookPage::cells; ++cell) {
        labels_.show(cell, nameWithoutExtension(itemName(page_.entry(cell))));
        paintCell(cell);
    }
}

// A thumbnail that cannot be read in full leaves its cell empty.
void PhotoBook::paintCell(int cell)
{
    const StagePoint& place = grid_.position(cell);
    std::array<std::uint8_t, clipBytes> clip;
    if (page_.entry(cell) == nullptr || !readClip(page_.entry(cell), clip))
        return backdrop_.fillPixels(color3, place.x, place.y, cellWidth, cellHeight);
    turnMagentaWhite(clip.data(), clipPixels);
    std::array<std::uint32_t, clipPixels> opaque;
    toOpaquePixels(clip.data(), opaque.data(), clipPixels);
    backdrop_.pastePixels(
        opaque.data(), clipWidth, clipHeight, place.x, place.y, cellWidth, cellHeight);
}

void PhotoBook::clearSelection()
{
    selectedEntry_ = nullptr;
    grid_.deselect();
}

void PhotoBook::commitName()
{
    if (selectedEntry_ == nullptr)
        return;
    const RenameResult result = renamePicture(selectedEntry_, labels_.shown(currentCell_).c_str());
    if (result == RenameResult::Blank || result == RenameResult::Refused)
        labels_.show(currentCell_, selectedName());
    if (result == RenameResult::Refused)
        sayGuide(clip::nameRefused);
}

void PhotoBook::keyTyped(std::uint32_t key)
{
    if (selectedEntry_ != nullptr)
        labels_.type(currentCell_, key);
}

void PhotoBook::deleteSelected()
{
    if (closeExport() || selectedEntry_ == nullptr)
        return;
    deletePicture(selectedName().c_str());
    page_.openWithout(*selectedEntry_);
    showPage();
    trashSound_.play(false);
}

void PhotoBook::exportSelected()
{
    if (selectedEntry_ == nullptr)
        return sayGuide(clip::exportPicture);
    grid_.select(currentCell_);
    openExport(selectedName().c_str(), "");
}

void PhotoBook::importFile()
{
    clearSelection();
    openImport();
}

void PhotoBook::giveBack()
{
    handOverPicture(selectedEntry_ != nullptr ? selectedName().c_str() : nullptr);
}

String PhotoBook::selectedName() const
{
    return nameWithoutExtension(itemName(selectedEntry_));
}

} // namespace kez
