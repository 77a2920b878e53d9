// SPDX-License-Identifier: MIT
#include "activity/popup.h"

#include "core/flags.h"
#include "input/events.h"

namespace kez {

namespace {

Popup* openPopup = nullptr;

} // namespace

Popup::Popup(const char* pictureName)
    : view_(0, 0, 0, 0, 0, false, true)
    , picture_(pictureName, true)
{
    clickService_.setClient(this);
    mouseService_.setClient(this);
    view_.add(picture_);
    face_.addBearer(picture_);
}

void Popup::addButtons(std::initializer_list<Image*> buttons)
{
    buttons_ = buttons;
    for (Image* button : buttons_)
        view_.add(*button);
}

std::vector<Image*> Popup::images()
{
    std::vector<Image*> all { &picture_ };
    all.insert(all.end(), buttons_.begin(), buttons_.end());
    return all;
}

void Popup::enter()
{
    hideButtons();
    if (open_)
        return;
    closePopup();
    open_ = true;
    openPopup = this;
    clickService_.attach();
    mouseService_.attach();
    view_.open();
    face_.show();
}

void Popup::leave()
{
    hideButtons();
    if (!open_)
        return;
    open_ = false;
    openPopup = nullptr;
    clickService_.detach();
    mouseService_.detach();
    face_.hide();
    view_.close();
}

void Popup::serviceFired(Service& service)
{
    if (&service == &mouseService_)
        lightButton();
    else if (&service == &clickService_)
        clicked();
}

void Popup::hideButtons()
{
    for (Image* button : buttons_)
        button->visible = false;
}

void Popup::lightButton()
{
    hideButtons();
    for (Image* button : buttons_) {
        button->visible = button->hitTest(mouseX, mouseY);
        if (button->visible)
            return;
    }
}

bool Popup::isPicked(const char* name)
{
    return pickedItem != nullptr && pickedItem->name() == name;
}

bool Popup::isPicturePicked() const
{
    return pickedItem == &picture_;
}

void closePopup()
{
    if (openPopup != nullptr)
        openPopup->leave();
}

} // namespace kez
