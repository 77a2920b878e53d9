// SPDX-License-Identifier: MIT
/// The subcommands of kez. Each adds itself, with its options and help, to the application.
#pragma once

namespace CLI {
class App;
}

namespace kez::tools {

void addContentCommand(CLI::App& app);
void addListCommand(CLI::App& app);
void addPackCommand(CLI::App& app);
void addPictureCommand(CLI::App& app);
void addSoundCommand(CLI::App& app);
void addUnpackCommand(CLI::App& app);
void addVerifyCommand(CLI::App& app);

} // namespace kez::tools
