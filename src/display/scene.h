// SPDX-License-Identifier: MIT
/// Scenes are the screens of the activity; one at most is current. A switch is asked for at any
/// moment and carried out at the start of the next frame. Actors have a scene's life cycle but are
/// driven by their scene: grids, popups, the picture view.
#pragma once

#include "core/task.h"

namespace kez {

class Actor : public Task {
public:
    virtual void create(); ///< Slot 12: once, before the first entry.
    virtual void enter(); ///< Slot 13.
    virtual void leave(); ///< Slot 14.
};

class Scene : public Actor {
public:
    virtual void onCreate(); ///< Slot 15: just before `create`.
    virtual void onEnter(); ///< Slot 16: just before `enter`.
    virtual void onLeave(); ///< Slot 17: just after `leave`.

    [[nodiscard]] int entries() const { return entries_; } ///< Times entered.

private:
    friend void performSwitch();
    int entries_ = 0;
};

/// Asks for a switch in the next frame; a later request replaces an earlier one, and one for the
/// current scene is ignored. The scene stays the caller's.
void switchTo(Scene& scene);

void performSwitch(); ///< The frame's step: carries out the pending switch, if any.
void endScene(); ///< Leaves the current scene without a successor.
[[nodiscard]] Scene* currentScene();
[[nodiscard]] Scene* pendingScene();

} // namespace kez
