// SPDX-License-Identifier: MIT
/// The three kinds of input service. Each tells its client about events of its kind, the most
/// recently attached first; the client finds the event in the records of `events.h` and calls
/// `stopDispatch` when it has handled it completely.
#pragma once

#include "core/service.h"

namespace kez {

/// A service of one of the three registries; it may leave in the middle of a dispatch.
class InputService : public Service {
public:
    ~InputService() override;
    void detach() override;

protected:
    /// Where the dispatch over this kind's registry stands.
    explicit InputService(DispatchPosition& position)
        : position_(position)
    {
    }

private:
    DispatchPosition& position_;
};

/// Hears every mouse event: press, move, release.
class MouseService : public InputService {
public:
    MouseService();
    List& registry() override;
};

/// Hears every press of the left button that finds an item under the mouse, before the mouse
/// services hear the same press.
class ClickService : public InputService {
public:
    ClickService();
    List& registry() override;
};

/// Hears every key event: press, character, release.
class KeyService : public InputService {
public:
    KeyService();
    List& registry() override;
};

/// Fire the services of a kind, the most recently attached first.
void dispatchToMouseServices();
void dispatchToClickServices();
void dispatchToKeyServices();

} // namespace kez
