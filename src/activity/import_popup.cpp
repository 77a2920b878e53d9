// SPDX-License-Identifier: MIT
#include "activity/import_popup.h"

#include "activity/activity_screen.h"
#include "activity/picture_import.h"
#include "activity/picture_names.h"
#include "activity/stored_files.h"
#include "input/events.h"

#include <windows.h>

namespace kez {

namespace {

constexpr Placement topRow { .x = -28, .y = -102, .width = 108, .height = 15 };
constexpr std::size_t rowColumns = 13; // characters of the fixed font
constexpr int longestTyped = 8;
constexpr int roomForImport = 140'000; // bytes: more than the largest picture and a thumbnail need

bool isContinuation(char character)
{
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

// Names without a short form may be longer than a row: they end in two dots. A character of several
// bytes is kept whole.
String fitted(const String& name)
{
    constexpr std::string_view dots = "..";
    std::size_t characters = 0;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < name.view().size(); ++i) {
        characters += isContinuation(name.view()[i]) ? 0 : 1;
        if (characters <= rowColumns - dots.size())
            kept = i + 1;
    }
    if (characters <= rowColumns)
        return name;
    return String(name.view().substr(0, kept)).append(dots);
}

} // namespace

ImportPopup& importPopup()
{
    static ImportPopup popup;
    return popup;
}

ImportPopup::ImportPopup()
    : Popup("importPop")
    , okButton_("importOkRoll", false)
    , cancelButton_("importCancelRoll", false)
    , upButton_("importuproll", false)
    , downButton_("importdownRoll", false)
{
    keyService_.setClient(this);
    addButtons({ &okButton_, &cancelButton_, &upButton_, &downButton_ });
    for (int row = 0; row < rows; ++row) {
        auto& text = labels_[static_cast<std::size_t>(row)];
        text = std::make_unique<Text>("", rowPlace(row), true, black);
        view_.add(*text);
    }
}

Placement ImportPopup::rowPlace(int row)
{
    Placement place = topRow;
    place.y += row * topRow.height;
    return place;
}

void ImportPopup::enter()
{
    Popup::enter();
    keyService_.attach();
    list_.scan();
    constexpr int allRows = rows;
    showList(list_.count() > allRows ? middleRow : (list_.count() + 1) / 2 - 1);
    typed_.clear();
}

void ImportPopup::leave()
{
    if (!isOpen())
        return;
    playTap();
    keyService_.detach();
    Popup::leave();
    list_.clear();
}

void ImportPopup::serviceFired(Service& service)
{
    if (&service != &keyService_)
        return Popup::serviceFired(service);
    stopDispatch(); // what is typed here is not for the screen below
    if (keyChar)
        typeKey(keyCode);
    else if (keyDown && keyCode == VK_UP)
        moveBy(-1);
    else if (keyDown && keyCode == VK_DOWN)
        moveBy(+1);
}

void ImportPopup::clicked()
{
    for (int row = 0; row < rows; ++row)
        if (pickedItem == &label(row))
            return moveBy(row - middleRow);
    if (pickedItem == &upButton_)
        moveBy(-1);
    else if (pickedItem == &downButton_)
        moveBy(+1);
    else if (pickedItem == &okButton_)
        importCurrent();
    else if (!isPicturePicked())
        leave();
}

void ImportPopup::showList(int index)
{
    playTap();
    current_ = index;
    for (int row = 0; row < rows; ++row) {
        const ImportFile* file = index < 0 ? nullptr : list_.at(index - middleRow + row);
        label(row).setText(file != nullptr ? fitted(file->baseName).c_str() : "", Text::Fit::Keep);
    }
}

void ImportPopup::moveBy(int distance)
{
    if (distance == 0 || list_.at(current_ + distance) == nullptr)
        return;
    typed_.clear();
    showList(current_ + distance);
}

void ImportPopup::typeKey(std::uint32_t key)
{
    if (key == VK_RETURN)
        return importCurrent();
    if (key == VK_BACK && !typed_.empty())
        typed_.cut(1);
    else if (key != ' ' && mayStandInName(key) && typed_.length() < longestTyped)
        typed_.append(static_cast<char>(key));
    if (const int found = list_.find(typed_.view()); found >= 0)
        showList(found);
}

void ImportPopup::importCurrent()
{
    playTap();
    const ImportFile* file = list_.at(current_);
    if (hasRoom(roomForImport) && file != nullptr)
        importPicture(*file);
}

void openImport()
{
    importDone = false;
    importUnreadable = false;
    importPopup().enter();
}

} // namespace kez
