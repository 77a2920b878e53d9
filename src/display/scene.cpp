// SPDX-License-Identifier: MIT
#include "display/scene.h"

#include "core/service.h"

namespace kez {

namespace {

Scene* current = nullptr;
Scene* pending = nullptr;

} // namespace

void Actor::create() { }

void Actor::enter() { }

void Actor::leave() { }

void Scene::onCreate() { }

void Scene::onEnter() { }

void Scene::onLeave() { }

void switchTo(Scene& scene)
{
    if (&scene != current)
        pending = &scene;
}

void performSwitch()
{
    if (pending == nullptr)
        return;
    Scene* next = pending;
    if (current != nullptr) {
        current->leave();
        current->onLeave();
    }
    if (next->entries_ == 0) {
        next->onCreate();
        next->create();
    }
    ++next->entries_;
    next->onEnter();
    next->enter();
    current = next;
    // A screen that asks for another one while it is entered gets it in the next frame.
    if (pending == next)
        pending = nullptr;
    stopDispatch();
}

void endScene()
{
    if (current == nullptr)
        return;
    current->leave();
    current->onLeave();
    current = nullptr;
}

Scene* currentScene()
{
    return current;
}

Scene* pendingScene()
{
    return pending;
}

} // namespace kez
