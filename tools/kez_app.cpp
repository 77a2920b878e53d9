// SPDX-License-Identifier: MIT
#include "kez_app.h"

#include "commands.h"
#include "progress.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <string>

namespace kez::tools {

namespace {

std::string complaintOf(const CLI::App* app, const CLI::Error& error)
{
    const auto commands = app->get_subcommands();
    const auto unknown = app->remaining();
    const std::string name = commands.empty() ? "kez" : "kez " + commands.front()->get_name();
    std::string text = error.what();
    if (commands.empty() && error.get_name() == "RequiredError")
        text = unknown.empty() ? "name a command"
                               : "there is no command \"" + unknown.front() + "\"";
    return "kez: " + text + "\n" + name + " --help tells what there is.\n";
}

} // namespace

int runKez(int argc, const char* const* argv)
{
    constexpr int refused = 1;
    constexpr int misused = 2;
    CLI::App app(
        "Packs and unpacks the archives of Kez and converts its pictures and sounds.", "kez");
    app.set_version_flag("--version", "kez " KEZ_VERSION);
    app.require_subcommand(1);
    app.failure_message(complaintOf);
    app.fallthrough();
    app.add_flag("--progress", progressWanted,
        "Report on long work every second, also when standard error is no terminal");
    addContentCommand(app);
    addPackCommand(app);
    addListCommand(app);
    addVerifyCommand(app);
    addUnpackCommand(app);
    addPictureCommand(app);
    addSoundCommand(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : misused;
    } catch (const std::filesystem::filesystem_error& error) {
        std::fprintf(stderr, "kez: %s: %s; is it there, and may you read and write it?\n",
            error.path1().string().c_str(), error.code().message().c_str());
        return refused;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kez: %s\n", error.what());
        return refused;
    }
    return 0;
}

} // namespace kez::tools
