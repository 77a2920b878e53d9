// SPDX-License-Identifier: MIT
/// The one message queue. Messages from the display go through it beside those that programs post;
/// only what comes from the display moves the key states and asks for the cursor's shape.
#pragma once

#include "winuser.h"

#include <deque>
#include <optional>

namespace kez::winapi {

class MessageQueue {
public:
    void post(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void postInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void postCharacter(HWND window, UINT message, WPARAM character, LPARAM lParam); ///< In front.
    void postQuit(int exitCode);
    void forget(HWND window); ///< Drops the messages of a window that is gone.

    struct Filter {
        HWND window;
        UINT first;
        UINT last;
    };

    /// The first message that passes the filter; posted ones, then the quit message, then paint.
    [[nodiscard]] std::optional<MSG> take(const Filter& filter, bool remove);

    /// The message taken last came from the display.
    [[nodiscard]] bool tookInput() const { return tookInput_; }

private:
    struct Entry {
        MSG message;
        bool isInput;
    };

    [[nodiscard]] std::optional<Entry> takePosted(const Filter& filter, bool remove);
    [[nodiscard]] std::optional<MSG> takePaint(const Filter& filter) const;

    std::deque<Entry> entries_;
    std::optional<int> exitCode_;
    bool tookInput_ = false;
};

MessageQueue& messageQueue();

} // namespace kez::winapi
