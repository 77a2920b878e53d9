// SPDX-License-Identifier: MIT
#include "kez_app.h"

#include "commands.h"
#include "progress.h"

#include <CLI/CLI.hpp>

#include <cstdio>

namespace kez::tools {

int runKez(int argc, const char* const* argv)
{
    constexpr int refused = 1;
    constexpr int misused = 2;
    CLI::App app(
        "Packs and unpacks the archives of Kez and converts its pictures and sounds.", "kez");
    app.set_version_flag("--version", "kez " KEZ_VERSION);
    app.require_subcommand(1);
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
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kez: %s\n", error.what());
        return refused;
    }
    return 0;
}

} // namespace kez::tools
