// SPDX-License-Identifier: MIT
/// The subcommands of kez. Each adds itself, with its options and help, to the application.
#pragma once

namespace CLI {
class App;
}

namespace kez::tools {

void addListCommand(CLI::App& app);
void addPackCommand(CLI::App& app);
void addPictureCommand(CLI::App& app);
void addSoundCommand(CLI::App& app);
void addUnpackCommand(CLI::App& app);

} // namespace kez::tools
