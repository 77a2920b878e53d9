// SPDX-License-Identifier: MIT
/// What programs ask of the system besides the Win32 names: where a person's files go, whose clock
/// runs, where diagnostics are shown.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace kez::desktop {

/// The directory for a person's pictures: under $XDG_DATA_HOME or ~/.local/share; on Windows under
/// the application data folder. Not created here.
[[nodiscard]] std::string dataHome();

/// The folder where a person looks for pictures, in their own language and where they moved it to;
/// empty when they want none. Not created here.
[[nodiscard]] std::string picturesHome();

/// The directory that holds the running program's file.
[[nodiscard]] std::string programDirectory();

/// From now on `timeGetTime` and `Sleep` run on a clock of their own that starts at `start` and
/// moves only when every thread of the program that was started with CreateThread, and the thread
/// that called this, sleeps: it then jumps to the earliest wake-up. A visit thus plays as fast as
/// the machine allows, and the same way each time. On Windows nothing changes: time is real there.
void useScriptClock(unsigned start = 1000);

/// A path of the standard library from the text in which all functions here and the system's narrow
/// ones name it, and back. On Windows that is the machine's code page, of which the standard
/// library knows nothing: what it makes of a text by itself names another file as soon as there is
/// an umlaut.
[[nodiscard]] std::filesystem::path pathOf(const std::string& text);
[[nodiscard]] std::string textOf(const std::filesystem::path& path);

/// A program's claim to a directory: of all programs that ask, one has it at a time. The system
/// gives it back however the program ends. Where claims cannot be made (a directory that may only
/// be read, a network's) nobody is kept out.
class Claim {
public:
    explicit Claim(const std::string& directory);
    ~Claim();
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;

    [[nodiscard]] bool isRefused() const { return refused_; } ///< Another has it.

private:
    std::intptr_t handle_;
    bool refused_ = false;
};

/// A windowed program that was started from a console on Windows writes there, unless its output
/// goes elsewhere already. On Linux every program does.
void useConsoleOfCaller();

/// `OutputDebugStringA` writes to standard error as well, or stops to.
void showDebugOutput(bool shown);

} // namespace kez::desktop
