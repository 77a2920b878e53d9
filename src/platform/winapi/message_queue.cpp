// SPDX-License-Identifier: MIT
#include "message_queue.h"

#include "input_state.h"
#include "mmsystem.h"
#include "window.h"

#include <algorithm>

namespace kez::winapi {

namespace {

MSG messageOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return { window, message, wParam, lParam, timeGetTime(), inputState().cursor };
}

bool passes(const MSG& message, const MessageQueue::Filter& filter)
{
    const bool any = filter.first == 0 && filter.last == 0;
    return (filter.window == nullptr || filter.window == message.hwnd)
        && (any || (message.message >= filter.first && message.message <= filter.last));
}

} // namespace

MessageQueue& messageQueue()
{
    static auto& only = *new MessageQueue;
    return only;
}

void MessageQueue::post(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    entries_.push_back({ messageOf(window, message, wParam, lParam), false });
}

// Movements that nobody has asked for yet become one, so that a slow program does not fall behind.
void MessageQueue::postInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Entry entry { messageOf(window, message, wParam, lParam), true };
    if (message == WM_MOUSEMOVE && !entries_.empty() && entries_.back().isInput
        && entries_.back().message.message == WM_MOUSEMOVE)
        entries_.back() = entry;
    else
        entries_.push_back(entry);
}

void MessageQueue::postCharacter(HWND window, UINT message, WPARAM character, LPARAM lParam)
{
    entries_.push_front({ messageOf(window, message, character, lParam), false });
}

void MessageQueue::postQuit(int exitCode)
{
    exitCode_ = exitCode;
}

void MessageQueue::forget(HWND window)
{
    std::erase_if(entries_, [&](const Entry& entry) { return entry.message.hwnd == window; });
}

std::optional<MessageQueue::Entry> MessageQueue::takePosted(const Filter& filter, bool remove)
{
    const auto found = std::ranges::find_if(
        entries_, [&](const Entry& entry) { return passes(entry.message, filter); });
    if (found == entries_.end())
        return std::nullopt;
    const Entry entry = *found;
    if (remove)
        entries_.erase(found);
    return entry;
}

std::optional<MSG> MessageQueue::takePaint(const Filter& filter) const
{
    for (const auto& [key, window] : windows()) {
        HWND handle = static_cast<HWND>(const_cast<void*>(key));
        const MSG message = messageOf(handle, WM_PAINT, 0, 0);
        if (window->needsPaint && window->visible && passes(message, filter))
            return message;
    }
    return std::nullopt;
}

std::optional<MSG> MessageQueue::take(const Filter& filter, bool remove)
{
    if (const auto entry = takePosted(filter, remove)) {
        tookInput_ = entry->isInput;
        return entry->message;
    }
    tookInput_ = false;
    if (exitCode_) {
        const auto code = static_cast<WPARAM>(*exitCode_);
        if (remove)
            exitCode_.reset();
        return messageOf(nullptr, WM_QUIT, code, 0);
    }
    return takePaint(filter);
}

} // namespace kez::winapi
