// SPDX-License-Identifier: MIT
/// What the person who starts the player asks for.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

namespace kez::player {

/// How the program ends, for scripts that start it.
enum class ExitCode { Fine = 0, Failed = 1, BadUsage = 2, VisitFailed = 3 };

enum class Activity { Camera, Book };

constexpr const char* folderPrefix = "folder:"; ///< Of a camera's source that is a folder.

/// All paths as given; relative ones are meant from the directory the program was started in.
struct Options {
    Activity activity = Activity::Camera;
    std::string data; ///< Where the pictures live.
    std::optional<std::string> pictures; ///< Where exports are copied to; empty text: nowhere.
    std::string content; ///< The directory that holds `data` and `audio`.
    std::string camera = "demo"; ///< "demo", "none" or "folder:DIR".
    int depth = 32; ///< Bits of a pixel on the display: 16, 24 or 32.
    int diskBudget = 64 << 20; ///< Bytes that one run may add to the disk.
    bool song = true;
    bool intro = true;
    bool captions = false;
    std::string language = "en"; ///< Of the guide; another than English has a folder of its own.
    bool fullScreen = false;
    bool verbose = false;
    bool headless = false;
    bool doctor = false; ///< Look at the computer instead of playing.
    std::string visit; ///< A file of steps, or empty.
    std::string log; ///< Where the guide's clips are written down, or empty.
    std::string handedBack; ///< Where the handed-back picture is written as PNG, or empty.
};

/// The options, or the reason to end at once.
struct Usage {
    Options options;
    bool start = false; ///< False: end with `exitCode`; help, version or complaint is written.
    ExitCode exitCode = ExitCode::Fine;
};

/// Reads the command line. `defaults` supplies what is not given; answers such as the help go to
/// `out`, complaints to `err`.
[[nodiscard]] Usage readOptions(int count, const char* const* arguments, const Options& defaults,
    std::ostream& out, std::ostream& err);

} // namespace kez::player
