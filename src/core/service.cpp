// SPDX-License-Identifier: MIT
#include "core/service.h"

#include "core/diagnostics.h"
#include "core/flags.h"

namespace kez {

Service::~Service()
{
    // Not the virtual detach: the derived part is gone by now.
    Service::detach();
}

bool Service::isRegistered() const
{
    return registration_ != nullptr;
}

void Service::attach()
{
    if (!isRegistered())
        registration_ = registry().appendRef(this);
}

void Service::detach()
{
    if (quitting || registration_ == nullptr)
        return;
    delete registration_;
    registration_ = nullptr;
}

void Service::serviceStarting(Service& /*service*/) { }

void Service::serviceFired(Service& /*service*/) { }

void Service::fire()
{
    if (client_ == nullptr) {
        debugPrint("Null client for service %s.", className().c_str());
        return;
    }
    client_->serviceStarting(*this);
    client_->serviceFired(*this);
}

void dispatch(List& registry, DispatchPosition& position)
{
    dispatching = true;
    position.cursor = registry.last();
    while (position.cursor != nullptr && dispatching) {
        position.next = nullptr;
        static_cast<Service*>(position.cursor->item())->fire();
        if (position.cursor != nullptr)
            position.cursor = position.next != nullptr ? position.next : position.cursor->prev();
    }
}

void stopDispatch()
{
    dispatching = false;
}

void leaveDispatch(const List* node, DispatchPosition& position)
{
    // The cursor moves as well: it must not point to a node that is gone when the service attached
    // before leaves too.
    if (node != nullptr && position.cursor == node)
        position.cursor = position.next = node->prev();
}

} // namespace kez
