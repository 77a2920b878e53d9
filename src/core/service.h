// SPDX-License-Identifier: MIT
/// Services take part in the engine's life: input sources, tasks, scenes, views, sounds. Each kind
/// has one registry, a global `List`; a service is in it between `attach` and `detach`. A service
/// that has something to say fires, and its client hears it.
#pragma once

#include "core/list.h"
#include "core/object.h"

namespace kez {

class Service : public Object {
public:
    Service() = default;
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;
    ~Service() override; ///< Detaches, unless `quitting`.

    virtual List& registry() = 0; ///< Slot 5: the registry of this kind.
    virtual bool isRegistered() const; ///< Slot 6.
    virtual void attach(); ///< Slot 7: joins the end of the registry, once.
    virtual void detach(); ///< Slot 8: leaves it; nothing while `quitting`.
    virtual void serviceStarting(Service& service); ///< Slot 9: a service is about to fire.
    virtual void serviceFired(Service& service); ///< Slot 10: clients react here.

    void setClient(Service* client) { client_ = client; } ///< Borrowed; null for none.

    [[nodiscard]] Service* client() const { return client_; }

    [[nodiscard]] List* registration() const { return registration_; }

    void fire(); ///< Tells the client; a diagnostic when there is none.

protected:
    List* registration_ = nullptr; ///< The node in the registry, or null.

private:
    Service* client_ = nullptr;
};

/// Where a dispatch over a registry stands. Each input registry has one; a service of that registry
/// that detaches while an event is under way repairs it (see `leaveDispatch`).
struct DispatchPosition {
    List* cursor = nullptr;
    List* next = nullptr;
};

/// An event is under way. Cleared by `stopDispatch`; stays set after a dispatch that ran to its
/// end.
inline bool dispatching = false;

/// Fires the services of a registry, the most recently attached first, until all have heard the
/// event or somebody calls `stopDispatch`. Services may attach and detach meanwhile.
void dispatch(List& registry, DispatchPosition& position);

/// No further service hears the event under way.
void stopDispatch();

/// To be called before `node` leaves its registry: a dispatch that stands on it goes on with the
/// service attached before it, and ends when there is none.
void leaveDispatch(const List* node, DispatchPosition& position);

} // namespace kez
