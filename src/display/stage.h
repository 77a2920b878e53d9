// SPDX-License-Identifier: MIT
/// The stage fixes the picture's size and its coordinates (origin at the centre, y downward), and
/// its `frame` is the one step that the host drives: time, scene switch, due tasks, drawing.
#pragma once

namespace kez {

class Stage {
public:
    Stage(); ///< Exactly one; a second one is a programming error.
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    virtual void onStart(); ///< Slot 0.
    virtual void onReleased(); ///< Slot 1: `Kez::release`, after the archive is destroyed.
    virtual void onStarted(); ///< Slot 2.
    virtual void onReleasing(); ///< Slot 3: `Kez::release`, first.
    virtual void frame(); ///< Slot 4: nothing while `suspended`.
    virtual void hook5(); ///< Slot 5: never called.
    virtual void onInput(); ///< Slot 6: after each mouse or key event.

    static constexpr int width = 640;
    static constexpr int height = 480;

protected:
    ~Stage();
};

/// The one stage of the module.
Stage& stage();

} // namespace kez
