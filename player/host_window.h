// SPDX-License-Identifier: MIT
/// The player's one window: made, asked for its messages, and closed.
#pragma once

#include <windows.h>

namespace kez::player {

/// Who hears of the window's input; positions in window pixels.
class WindowClient {
public:
    virtual void pointerMoved(int x, int y) = 0;
    virtual void pointerPressed(int x, int y) = 0;
    virtual void keyPressed(int virtualKey) = 0;
    virtual void needsDrawing() = 0; ///< What was on the screen may be gone.

    /// A clip of the guide has started (0: the guide was silenced); 0 ms when it is not heard.
    virtual void guideSpeaks(int clip, DWORD durationMs) = 0;

protected:
    ~WindowClient() = default;
};

enum class WindowShown { OnScreen, Never };

/// At most one exists at a time. The client must outlive it.
class HostWindow {
public:
    HostWindow(WindowClient& client, WindowShown shown);
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// False when there is no display to show it on.
    explicit operator bool() const { return isThere_; }

    [[nodiscard]] HWND handle() const { return window_; }

    /// Dispatches the messages that wait. False once the window has been asked to close.
    [[nodiscard]] bool pump();

    /// Sends one message at once, as the system does for input.
    void send(UINT message, WPARAM word, LPARAM detail) const;

    /// Shows the system's pointer. The module hides it at every move for as long as it has the
    /// window, also between two runs.
    static void showPointer();

    static constexpr int width = 640;
    static constexpr int height = 480;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM word, LPARAM detail);
    bool handle(UINT message, WPARAM word, LPARAM detail);

    WindowClient& client_;
    UINT clipMessage_;
    HWND window_ = nullptr;
    bool isThere_ = false;
    bool closing_ = false;
};

} // namespace kez::player
