// SPDX-License-Identifier: MIT
/// The three kinds of input service. Each tells its client about events of its kind, the most
/// recently attached first; the client finds the event in the records of `events.h` and calls
/// `stopDispatch` when it has handled it completely.
#pragma once

#include "core/service.h"

namespace kez {

/// Hears every mouse event: press, move, release.
class MouseService : public Service {
public:
    ~MouseService() override;
    List& registry() override;
    void detach() override; ///< Also in the middle of a dispatch.
};

/// Hears every press of the left button that finds an item under the mouse, before the mouse
/// services hear the same press.
class ClickService : public Service {
public:
    ~ClickService() override;
    List& registry() override;
    void detach() override;
};

/// Hears every key event: press, character, release.
class KeyService : public Service {
public:
    ~KeyService() override;
    List& registry() override;
    void detach() override;
};

} // namespace kez
