// SPDX-License-Identifier: MIT
#include "control_kernel.h"
#include "winbase.h"

#include <cstdio>
#include <mutex>

namespace {

struct Output {
    std::mutex lock;
    bool shown = false;
    void (*hook)(const char*, void*) = nullptr;
    void* context = nullptr;
};

Output& output()
{
    static Output& only = *new Output; // never destroyed: diagnostics come until the very end
    return only;
}

} // namespace

void OutputDebugStringA(LPCSTR text)
{
    if (text == nullptr)
        return;
    const std::lock_guard guard(output().lock);
    if (output().shown)
        std::fputs(text, stderr);
    if (output().hook != nullptr)
        output().hook(text, output().context);
}

namespace kez::winapi {

void setDebugOutputHook(void (*hook)(const char* text, void* context), void* context)
{
    const std::lock_guard guard(output().lock);
    output().hook = hook;
    output().context = context;
}

void showDebugOutput(bool shown)
{
    const std::lock_guard guard(output().lock);
    output().shown = shown;
}

} // namespace kez::winapi
