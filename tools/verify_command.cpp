// SPDX-License-Identifier: MIT
/// kez verify: will these pictures and sounds do?
#include "archive_listing.h"
#include "commands.h"
#include "content_check.h"
#include "host/song.h"
#include "platform/files.h"
#include "record_check.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <memory>

namespace kez::tools {

namespace {

struct VerifyOptions {
    std::string archive;
    std::string audio;
    bool noAudio = false;
};

// A folder stands for what lies in it as the player expects it.
std::string archiveOf(const VerifyOptions& options)
{
    return files::isDirectory(options.archive) ? options.archive + "/data/kez.wad"
                                               : options.archive;
}

// Beside the folder of the archive.
std::string audioOf(const VerifyOptions& options, const std::string& archive)
{
    if (!options.audio.empty())
        return options.audio;
    const std::filesystem::path data = std::filesystem::absolute(archive).parent_path();
    return (data.parent_path() / "audio").string();
}

void verify(const VerifyOptions& options)
{
    const std::string path = archiveOf(options);
    const OpenArchive archive = openArchive(path);
    const ContentNeeds needs = contentNeeds();
    Findings findings;
    checkRecords(archive.list, findings);
    checkPictures(needs, archive.list.records, findings);
    if (!options.noAudio)
        checkSounds(needs, songName, audioOf(options, path), findings);

    for (const std::string& note : findings.notes)
        std::printf("note: %s\n", note.c_str());
    for (const std::string& fault : findings.faults)
        std::fprintf(stderr, "%s: %s\n", path.c_str(), fault.c_str());
    if (!findings.faults.empty())
        throw UserError(path + ": " + std::to_string(findings.faults.size())
            + (findings.faults.size() == 1 ? " thing is" : " things are") + " to be mended");
    std::printf("%s: all is there that the screens need%s\n", path.c_str(),
        options.noAudio ? " to show" : "");
}

} // namespace

void addVerifyCommand(CLI::App& app)
{
    const auto options = std::make_shared<VerifyOptions>();
    CLI::App* command = app.add_subcommand("verify",
        "Check that pictures and sounds are sound, and all there, and where the screens want them");
    command
        ->add_option("archive", options->archive,
            "The archive, such as kez.wad, or the folder that holds data and audio")
        ->required();
    CLI::Option* audio = command->add_option(
        "--audio", options->audio, "The folder of the sounds (audio, beside the archive's folder)");
    command->add_flag("--no-audio", options->noAudio, "Look at the pictures alone")
        ->excludes(audio);
    command->callback([options] { verify(*options); });
}

} // namespace kez::tools
