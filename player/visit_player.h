// SPDX-License-Identifier: MIT
/// Plays a scripted visit: one thing after another, as a child's hand would, a message and a pass
/// of the host's loop at a time.
#pragma once

#include "visit_script.h"

#include <windows.h>

#include <string>
#include <vector>

namespace kez::player {

/// What a visit acts on and looks at.
class VisitHost {
public:
    virtual void movePointer(int x, int y) = 0; ///< The system's pointer, in window pixels.
    virtual void sendMessage(UINT message, WPARAM word, LPARAM detail) = 0; ///< To the window.
    virtual bool takePicture() = 0; ///< By the camera; false when it takes none.
    virtual bool setPlugged(bool plugged) = 0; ///< The camera's cable; false when it has none.
    [[nodiscard]] virtual std::string cameraProblem() const = 0; ///< Why one of these was false.
    virtual bool keepShot(const std::string& file) = 0; ///< False when it cannot be written.
    [[nodiscard]] virtual int picturesArrived() const = 0; ///< Files of the camera's pictures.
    [[nodiscard]] virtual bool runs() const = 0; ///< An activity is under way.
    [[nodiscard]] virtual DWORD now() const = 0; ///< Milliseconds.

protected:
    ~VisitHost() = default;
};

enum class VisitState { GoesOn, Ended, Failed };

class VisitPlayer {
public:
    /// The host must outlive the player.
    VisitPlayer(std::vector<Step> steps, VisitHost& host);

    /// Called once per pass of the host's loop. After Failed, `complaint` tells which line failed
    /// and why.
    [[nodiscard]] VisitState pass();

    [[nodiscard]] int line() const { return line_; } ///< Of the step under way.

    [[nodiscard]] const std::string& complaint() const { return complaint_; }

private:
    bool advance(const Step& step); ///< One move within a step; true when the step is done.
    bool click(const Step& step);
    bool typeNext(const Step& step);
    bool waitFor(bool reached, const std::string& what);
    bool demand(bool done, const std::string& complaint);
    void sendKey(int virtualKey, int character);

    std::vector<Step> steps_;
    VisitHost& host_;
    std::size_t next_ = 0;
    int line_ = 0;
    int moves_ = 0; ///< Made within the step under way.
    DWORD stepStarted_ = 0;
    std::string complaint_;
};

} // namespace kez::player
