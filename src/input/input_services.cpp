// SPDX-License-Identifier: MIT
#include "input/input_services.h"

#include "core/flags.h"

namespace kez {

namespace {

/// A kind's registry and the dispatch over it. Never destroyed: static services leave it in any
/// order at unload.
struct InputKind {
    List services;
    DispatchPosition position;

    void dispatchEvent() { dispatch(services, position); }
};

InputKind& mouseKind()
{
    static InputKind& kind = *new InputKind;
    return kind;
}

InputKind& clickKind()
{
    static InputKind& kind = *new InputKind;
    return kind;
}

InputKind& keyKind()
{
    static InputKind& kind = *new InputKind;
    return kind;
}

} // namespace

InputService::~InputService()
{
    // Here and not in the base, which does not know that a dispatch may stand on this service.
    InputService::detach();
}

void InputService::detach()
{
    if (!quitting)
        leaveDispatch(registration_, position_);
    Service::detach();
}

MouseService::MouseService()
    : InputService(mouseKind().position)
{
}

List& MouseService::registry()
{
    return mouseKind().services;
}

ClickService::ClickService()
    : InputService(clickKind().position)
{
}

List& ClickService::registry()
{
    return clickKind().services;
}

KeyService::KeyService()
    : InputService(keyKind().position)
{
}

List& KeyService::registry()
{
    return keyKind().services;
}

void dispatchToMouseServices()
{
    mouseKind().dispatchEvent();
}

void dispatchToClickServices()
{
    clickKind().dispatchEvent();
}

void dispatchToKeyServices()
{
    keyKind().dispatchEvent();
}

} // namespace kez
