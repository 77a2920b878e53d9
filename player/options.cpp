// SPDX-License-Identifier: MIT
#include "options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <limits>
#include <ostream>
#include <vector>

namespace kez::player {

namespace {

constexpr const char* description
    = "Kez: pictures from a small camera, a photo book, and one picture to hand back.";

constexpr const char* keys
    = "Keys: C camera, B photo book, Q or Escape quit, arrows and Enter on the "
      "desk; F11 full screen.\n"
      "Ends with 0 when all went well, 1 when it could not start, --doctor found something "
      "missing or --handed-back cannot be written, 2 on wrong usage, 3 when a step of a visit "
      "failed.";

// A source that the camera driver knows; empty when `text` is one, else the complaint.
std::string checkCamera(const std::string& text)
{
    const std::string_view prefix = folderPrefix;
    if (text == "demo" || text == "none")
        return {};
    if (text.starts_with(prefix) && text.size() > prefix.size())
        return {};
    return "takes demo, none or folder:DIR, not \"" + text + "\"";
}

// One of the words that an option takes.
CLI::Validator oneOf(std::vector<std::string> words)
{
    return { [words = std::move(words)](std::string& text) {
                return std::ranges::find(words, text) != words.end()
                    ? std::string()
                    : "takes one of " + CLI::detail::join(words, ", ") + ", not \"" + text + "\"";
            },
        "" };
}

std::string checkBudget(const std::string& text)
{
    constexpr int most = std::numeric_limits<int>::max();
    int bytes = 0;
    return CLI::detail::lexical_cast(text, bytes) && bytes >= 0
        ? std::string()
        : "takes a number of bytes from 0 to " + std::to_string(most) + ", not \"" + text + "\"";
}

std::string complaintOf(const CLI::App*, const CLI::Error& error)
{
    std::string text = error.what();
    if (error.get_name() == "ArgumentMismatch")
        text = text.substr(0, text.find(':'))
            + (text.ends_with("missing") ? " needs a value behind it" : " stands more than once");
    if (const auto colon = text.find(": takes"); colon != std::string::npos)
        text.erase(colon, 1);
    return "kez-player: " + text + "\nkez-player --help lists what it takes.\n";
}

Activity activityNamed(const std::string& name)
{
    return name == "book" ? Activity::Book : Activity::Camera;
}

void addActivity(CLI::App& app, Options& options)
{
    app.add_option_function<std::string>(
           "--module", [&](const std::string& name) { options.activity = activityNamed(name); },
           "What to start with: camera or book")
        ->check(oneOf({ "camera", "book" }))
        ->option_text("NAME [camera]");
    app.add_option("--data", options.data, "Where the pictures are kept")->type_name("DIR");
    auto* pictures = app.add_option("--pictures", options.pictures,
                            "Where exports are copied to after a run [Kez in your Pictures folder]")
                         ->type_name("DIR");
    app.add_flag_callback(
           "--no-pictures", [&] { options.pictures = ""; }, "Copy no exports")
        ->excludes(pictures);
    app.add_option("--camera", options.camera,
           "Where pictures come from: demo, none, or folder:DIR (a folder of photographs)")
        ->check(checkCamera)
        ->option_text("SOURCE [" + options.camera + "]");
    app.add_option("--disk-budget", options.diskBudget, "Bytes that one run may add to the disk")
        ->check(checkBudget)
        ->option_text("BYTES [" + std::to_string(options.diskBudget) + "]");
    app.add_flag_callback(
        "--no-song", [&] { options.song = false; }, "Leave out the song");
    app.add_flag_callback(
        "--no-intro", [&] { options.intro = false; }, "Leave out the guide's introduction");
    app.add_option("--language", options.language, "The guide's language")
        ->option_text("CODE [" + options.language + "]");
    app.add_flag("--captions", options.captions, "Show in writing what the guide says");
}

void addDisplay(CLI::App& app, Options& options)
{
    app.add_option("--depth", options.depth, "Bits of a pixel on the display: 16, 24 or 32")
        ->check(oneOf({ "16", "24", "32" }))
        ->option_text("BITS [" + std::to_string(options.depth) + "]");
    app.add_flag("--fullscreen", options.fullScreen, "Fill the screen from the start");
    app.add_flag("--headless", options.headless, "Show no window; needs no display");
}

void addVisits(CLI::App& app, Options& options)
{
    app.add_option("--visit", options.visit, "Play the steps of a file, then quit")
        ->type_name("FILE");
    app.add_option(
           "--handed-back", options.handedBack, "Write the handed-back picture to a PNG file")
        ->type_name("FILE");
    app.add_option("--log", options.log, "Write down what the guide says, and when")
        ->type_name("FILE");
    app.add_option("--content", options.content, "The directory that holds data and audio")
        ->type_name("DIR");
    app.add_flag("--doctor", options.doctor,
        "Say what is there of display, sound, camera, content and room, and what to do");
    app.add_flag("--verbose", options.verbose,
        "Tell more on standard error, such as why a photograph is skipped");
}

// Without a window nobody could ever end it.
void refuseEndless(const Options& options)
{
    if (options.headless && options.visit.empty() && !options.doctor)
        throw CLI::RequiresError("--headless", "--visit FILE, the steps to play without a window");
}

} // namespace

Usage readOptions(int count, const char* const* arguments, const Options& defaults,
    std::ostream& out, std::ostream& err)
{
    Usage usage { .options = defaults };
    CLI::App app(description, "kez-player");
    app.footer(keys);
    app.failure_message(complaintOf);
    app.set_version_flag("--version", "kez-player " KEZ_VERSION);
    addActivity(app, usage.options);
    addDisplay(app, usage.options);
    addVisits(app, usage.options);
    try {
        app.parse(count, arguments);
        refuseEndless(usage.options);
        usage.start = true;
    } catch (const CLI::ParseError& error) {
        const bool asked = app.exit(error, out, err) == 0;
        usage.exitCode = asked ? ExitCode::Fine : ExitCode::BadUsage;
    }
    return usage;
}

} // namespace kez::player
