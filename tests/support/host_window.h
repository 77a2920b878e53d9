// SPDX-License-Identifier: MIT
/// A window as a host has it: its procedure writes down the messages that reach it.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

namespace kez::test {

class HostWindow {
public:
    HostWindow()
    {
        WNDCLASSA description = {};
        description.lpfnWndProc = procedure;
        description.lpszClassName = className;
        EXPECT_NE(RegisterClassA(&description), 0);
        window_ = CreateWindowExA(
            0, className, "host", WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
        EXPECT_NE(window_, nullptr);
        heard().clear();
    }

    ~HostWindow()
    {
        DestroyWindow(window_);
        UnregisterClassA(className, nullptr);
    }

    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    [[nodiscard]] HWND handle() const { return window_; }

    LRESULT send(UINT message, WPARAM wParam, LPARAM lParam) const
    {
        return SendMessageA(window_, message, wParam, lParam);
    }

    /// The message did reach the host's own procedure since the last call.
    static bool tookMessage(UINT message)
    {
        bool found = false;
        for (const UINT one : heard())
            found = found || one == message;
        heard().clear();
        return found;
    }

    /// Lets the messages that were posted reach the window, and returns the last one of a kind.
    static MSG deliver(UINT kind)
    {
        MSG last = {};
        MSG message = {};
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            if (message.message == kind)
                last = message;
            DispatchMessageA(&message);
        }
        return last;
    }

    static constexpr LRESULT answer = 77; ///< The host's result for messages of its own.
    static constexpr UINT ownMessage = WM_USER + 1;

private:
    static constexpr char className[] = "KezTestHost";

    static std::vector<UINT>& heard()
    {
        static std::vector<UINT> messages;
        return messages;
    }

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        heard().push_back(message);
        return message == ownMessage ? answer : DefWindowProcA(window, message, wParam, lParam);
    }

    HWND window_ = nullptr;
};

} // namespace kez::test
