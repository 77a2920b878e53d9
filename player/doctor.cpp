// SPDX-License-Identifier: MIT
#include "doctor.h"

#include "start_checks.h"

#include "media/sound_record.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <algorithm>
#include <filesystem>

namespace kez::player {

namespace {

constexpr std::uintmax_t megabyte = 1 << 20;

Finding examineContent(const std::string& content)
{
    const std::string problem = unusableContent(content);
    return { "content", problem.empty(),
        problem.empty() ? "The pictures of the screens are in " + content + "." : problem };
}

bool canBePlayed(const std::string& file)
{
    const files::Bytes record = files::read(file).value_or(files::Bytes {});
    const auto header = readSoundHeader(record);
    return header && soundBlock(record, *header);
}

Finding examineVoice(const std::string& content, const std::string& language)
{
    const std::string folder = voiceDirectory(content, language) + "/audio";
    const std::vector<files::Entry> clips = files::list(folder, "wv5");
    if (clips.empty())
        return { "voice", false,
            folder
                + " holds no sounds, so the guide is silent. Build the content (./run does), or "
                  "choose one of "
                + languagesOf(content) + " with --language." };
    const auto silent = std::ranges::count_if(clips,
        [&folder](const files::Entry& clip) { return !canBePlayed(folder + '/' + clip.name); });
    if (silent == 0)
        return { "voice", true, std::to_string(clips.size()) + " sounds are in " + folder + "." };
    return { "voice", false,
        std::to_string(silent) + " of " + std::to_string(clips.size()) + " sounds in " + folder
            + " are damaged and stay silent. Build the content anew (./run does)." };
}

// Those of the pinboard, which may still be thrown away, begin with this sign.
bool isKept(const files::Entry& picture)
{
    return !picture.name.starts_with('~');
}

Finding examineData(const std::string& data)
{
    const std::string note = dataNote(data);
    if (!note.empty())
        return { "pictures", false, note };
    const auto kept = std::ranges::count_if(files::list(data + "\\photo", "cam"), isKept);
    return { "pictures", true,
        std::to_string(kept) + (kept == 1 ? " picture is kept in " : " pictures are kept in ")
            + data + "." };
}

Finding examineSpace(const std::string& data, int budget)
{
    std::error_code error;
    const std::uintmax_t room = std::filesystem::space(desktop::pathOf(data), error).available;
    if (error)
        return { "space", false,
            "The free space for " + data + " cannot be told: " + error.message()
                + ". Choose another place with --data DIR." };
    const auto needed = static_cast<std::uintmax_t>(budget);
    const std::string found = std::to_string(room / megabyte) + " MB are free";
    if (room >= needed)
        return { "space", true, found + " for " + data + "." };
    return { "space", false,
        found + ", but a visit may need " + std::to_string((needed + megabyte - 1) / megabyte)
            + " MB. Make room, or choose another place with --data DIR." };
}

Finding examineCopies(const std::string& pictures)
{
    if (pictures.empty())
        return { "exports", true, "Exports stay in the folder export of the pictures." };
    std::error_code ignored;
    const bool usable = !std::filesystem::exists(desktop::pathOf(pictures), ignored)
        || dataNote(pictures).empty();
    return { "exports", usable,
        usable
            ? "Exports are also copied to " + pictures + "."
            : pictures + " takes no copies of exports. Name another folder with --pictures DIR." };
}

} // namespace

std::vector<Finding> examineFiles(const Options& options, const Places& places)
{
    return { examineContent(places.content), examineVoice(places.content, options.language),
        examineData(places.data), examineSpace(places.data, options.diskBudget),
        examineCopies(places.pictures) };
}

std::string reportOn(const std::vector<Finding>& findings)
{
    constexpr std::size_t column = 10;
    std::string report;
    for (const Finding& finding : findings) {
        std::string what = finding.what;
        what.resize(column, ' ');
        report += (finding.isFine ? "  fine     " : "  MISSING  ") + what + finding.text;
        if (!report.ends_with('\n'))
            report += '\n';
    }
    const auto missing
        = std::ranges::count_if(findings, [](const Finding& finding) { return !finding.isFine; });
    if (missing == 0)
        return report + "All is well.\n";
    return report + "To be looked after: " + std::to_string(missing) + " of "
        + std::to_string(findings.size()) + ".\n";
}

} // namespace kez::player
