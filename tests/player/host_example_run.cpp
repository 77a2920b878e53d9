// SPDX-License-Identifier: MIT
// Runs the host of docs/host.md as it stands there, until it has looked for messages often enough;
// then its window is closed.
#include "host/kez.h"

#include <cstdlib>

namespace {

constexpr int enough = 20;
int looks = 0;

void closeHost();

BOOL lookForMessage(LPMSG message, HWND window, UINT first, UINT last, UINT remove)
{
    if (++looks == enough)
        closeHost();
    return PeekMessageA(message, window, first, last, remove);
}

// A run that ended by itself is no success.
struct AtTheEnd {
    ~AtTheEnd()
    {
        if (looks < enough)
            std::_Exit(1);
    }
} atTheEnd;

} // namespace

#define PeekMessageA lookForMessage
#include "host_example.cpp" // made from the document

namespace {

void closeHost()
{
    procedure(nullptr, WM_CLOSE, 0, 0);
}

} // namespace
