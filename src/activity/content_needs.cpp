// SPDX-License-Identifier: MIT
#include "activity/content_needs.h"

#include "activity/camera_screen.h"
#include "activity/export_popup.h"
#include "activity/guide.h"
#include "activity/import_popup.h"
#include "activity/photo_book.h"
#include "activity/save_dialog.h"

#include <algorithm>
#include <iterator>

namespace kez {

namespace {

std::string nameOf(const Object& object)
{
    return std::string(object.name().view());
}

// The one image that is not a button is the ground: it shows from the start.
ScreenNeeds needsOf(const char* title, const std::vector<Image*>& images)
{
    ScreenNeeds needs;
    needs.title = title;
    for (const Image* image : images) {
        if (image->visible)
            needs.ground = nameOf(*image);
        else
            needs.buttons.push_back(nameOf(*image));
    }
    return needs;
}

void addCells(ScreenNeeds& needs, const GridLayout& layout)
{
    needs.fillsScreen = true;
    for (const StagePoint& cell : layout.cells)
        needs.places.push_back({ "a cell",
            { .x = cell.x, .y = cell.y, .width = layout.cellWidth, .height = layout.cellHeight } });
}

ScreenNeeds cameraNeeds()
{
    ScreenNeeds needs = needsOf("the camera screen", cameraScreen().images());
    addCells(needs, CameraScreen::layout());
    return needs;
}

ScreenNeeds bookNeeds()
{
    ScreenNeeds needs = needsOf("the photo book", photoBook().images());
    const GridLayout layout = PhotoBook::layout();
    addCells(needs, layout);
    for (const StagePoint& cell : layout.cells)
        needs.places.push_back(
            { "a name", NameLabels::placeBelow(cell, layout.cellWidth, layout.cellHeight) });
    return needs;
}

ScreenNeeds importNeeds()
{
    ScreenNeeds needs = needsOf("the import popup", importPopup().images());
    for (int row = 0; row < ImportPopup::rows; ++row)
        needs.places.push_back({ "a row of the list", ImportPopup::rowPlace(row) });
    return needs;
}

void addFaces(std::vector<FaceNeeds>& needs, const GuideFace& face)
{
    for (const FacePictures& each : face.pictures()) {
        FaceNeeds& added = needs.emplace_back(FaceNeeds { nameOf(each.bearer()), {} });
        for (const Image& part : each.parts())
            added.parts.push_back(nameOf(part));
    }
}

std::vector<std::string> clipNames()
{
    std::vector<std::string> names;
    for (List* node = guide().first(); node != nullptr; node = node->next()) {
        const auto& each = static_cast<const GuideClip&>(*node->item());
        if (std::ranges::find(clip::asked, each.clipId) != std::end(clip::asked))
            names.emplace_back(each.soundName.view());
    }
    return names;
}

} // namespace

ContentNeeds contentNeeds()
{
    ContentNeeds needs;
    needs.screens
        = { cameraNeeds(), bookNeeds(), needsOf("the export popup", exportPopup().images()),
              importNeeds(), needsOf("the save question", saveDialog().images()) };
    for (const GuideFace* face : { &cameraScreen().face(), &photoBook().face(),
             &exportPopup().face(), &importPopup().face(), &saveDialog().face() })
        addFaces(needs.faces, *face);
    for (const Image* pointer : cameraScreen().pointers())
        needs.pointers.push_back(nameOf(*pointer));
    for (const Image& frame : cameraScreen().busyFrames())
        needs.pointers.push_back(nameOf(frame));
    for (const Sound* sound : cameraScreen().sounds())
        needs.sounds.push_back(nameOf(*sound));
    needs.clips = clipNames();
    return needs;
}

} // namespace kez
