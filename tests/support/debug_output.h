// SPDX-License-Identifier: MIT
/// Hears the diagnostics that the module writes while the object lives.
#pragma once

#include "control_kernel.h"

#include <string>

namespace kez::test {

class DebugOutput {
public:
    DebugOutput() { winapi::setDebugOutputHook(hear, this); }

    ~DebugOutput() { winapi::setDebugOutputHook(nullptr); }

    DebugOutput(const DebugOutput&) = delete;
    DebugOutput& operator=(const DebugOutput&) = delete;

    [[nodiscard]] const std::string& text() const { return text_; }

    [[nodiscard]] int writes() const { return writes_; }

    /// What has been written since the last call.
    std::string take()
    {
        writes_ = 0;
        std::string taken;
        taken.swap(text_);
        return taken;
    }

private:
    static void hear(const char* text, void* context)
    {
        auto* self = static_cast<DebugOutput*>(context);
        self->text_ += text;
        ++self->writes_;
    }

    std::string text_;
    int writes_ = 0;
};

} // namespace kez::test
