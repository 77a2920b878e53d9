// SPDX-License-Identifier: MIT
/// kez content: an artist's folder becomes a folder that the player takes. What the artist has not
/// made is taken from content that is complete already.
#include "activity/content_needs.h"
#include "archive_listing.h"
#include "archive_packer.h"
#include "archive_writer.h"
#include "commands.h"
#include "counted.h"
#include "platform/ascii_letters.h"
#include "platform/files.h"
#include "sound_encoding.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <set>

namespace kez::tools {

namespace {

namespace fs = std::filesystem;

using Records = std::vector<std::vector<std::uint8_t>>;

struct ContentOptions {
    std::string folder;
    std::string out;
    std::string over;
};

constexpr const char* archivePath = "data/kez.wad";

void makeFolder(const fs::path& path)
{
    std::error_code error;
    fs::create_directories(path, error);
    if (error)
        throw UserError(path.string() + ": the folder cannot be made (" + error.message() + ")");
}

void copyFile(const fs::path& from, const fs::path& to)
{
    if (!files::copy(from.string(), to.string()))
        throw UserError(
            to.string() + ": the file cannot be written; is there room, and the right to?");
}

// Files of the one folder come over those of the other, with the folders below it.
void copyOver(const fs::path& from, const fs::path& to)
{
    if (!fs::is_directory(from))
        return;
    makeFolder(to);
    for (const auto& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_directory())
            copyOver(entry.path(), target);
        else if (entry.is_regular_file() && !target.generic_string().ends_with(archivePath))
            copyFile(entry.path(), target);
    }
}

// A folder's part, in whatever case the artist has written it.
fs::path partOf(const fs::path& folder, const char* name)
{
    return files::nativePath((folder / name).string());
}

// Such files are turned into records; all others are taken as they are.
bool isRecording(const fs::path& file)
{
    constexpr std::array endings { ".wav", ".flac", ".aiff", ".aif", ".ogg" };
    return std::ranges::find(endings, lowerCase(file.extension().string())) != endings.end();
}

class ContentMaker {
public:
    explicit ContentMaker(const ContentOptions& options)
        : folder_(options.folder)
        , out_(options.out)
        , over_(options.over)
    {
    }

    void make()
    {
        if (fs::exists(out_) && fs::exists(folder_) && fs::equivalent(out_, folder_))
            throw UserError(out_.string() + ": it is the artist's own folder; name another one");
        // All that can be refused is, before anything is written.
        const PackedFolder packed = packFolder(folder_.string());
        const Records records = completed(packed.records);
        encodeSounds();
        for (const std::string& remark : packed.remarks)
            std::printf("%s\n", remark.c_str());
        if (!over_.empty())
            for (const char* part : { "data", "audio", "languages" })
                copyOver(over_ / part, out_ / part);
        copyOver(partOf(folder_, "data"), out_ / "data");
        leaveOutOurBlinks();
        copySounds();
        makeFolder(out_ / "data");
        const std::string archive = (out_ / archivePath).string();
        const ArchiveSize size = writeArchive(archive, records, ArchiveForm::Compressed);
        std::printf("%s: %s of %s, %s, %zu bytes\n", archive.c_str(),
            counted(packed.items, "picture").c_str(), folder_.string().c_str(),
            counted(records.size(), "record").c_str(), size.file);
    }

private:
    // Sounds that have not changed are not encoded again: the song takes its time.
    void encodeSounds() const
    {
        for (const fs::path& path : soundFiles()) {
            if (!isRecording(path))
                continue;
            makeFolder(out_ / "encoded");
            const fs::path record = encodedFrom(path);
            if (!fs::exists(record) || fs::last_write_time(record) <= fs::last_write_time(path))
                encode(path, record);
        }
    }

    void copySounds() const
    {
        for (const fs::path& path : soundFiles()) {
            const fs::path ready = isRecording(path) ? encodedFrom(path) : path;
            makeFolder(out_ / "audio");
            copyFile(ready, out_ / "audio" / ready.filename());
            const std::string ending = lowerCase(ready.extension().string());
            if (ending != ".wv5" && ending != ".txt")
                std::printf("%s: it is taken along as it is, and not played; export it as WAV\n",
                    path.string().c_str());
        }
    }

    [[nodiscard]] std::vector<fs::path> soundFiles() const
    {
        std::vector<fs::path> found;
        const fs::path audio = partOf(folder_, "audio");
        if (!fs::is_directory(audio))
            return found;
        for (const auto& file : fs::directory_iterator(audio))
            if (file.is_regular_file())
                found.push_back(file.path());
        std::ranges::sort(found);
        return found;
    }

    [[nodiscard]] fs::path encodedFrom(const fs::path& recording) const
    {
        return out_ / "encoded" / (recording.stem().string() + ".wv5");
    }

    // The guide's clips get a track that a mouth can follow.
    static void encode(const fs::path& wave, const fs::path& record)
    {
        const std::string name = wave.stem().string();
        SoundJob job { .from = wave.string(), .to = record.string() };
        job.sync = name.size() == 5 && name.starts_with("kez")
            && std::all_of(
                name.begin() + 3, name.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
        std::printf("%s\n", encodeSound(job).c_str());
    }

    // Our guide's face fits our own drawings only: its parts stay away from a picture of the
    // artist's.
    static std::set<std::string> facesOf(const std::set<std::string>& own)
    {
        std::set<std::string> parts;
        for (const FaceNeeds& face : contentNeeds().faces)
            if (own.contains(normalisedRecordName(face.bearer + ".sp5")))
                for (const std::string& part : face.parts)
                    for (const char* kind : { ".sp5", ".pal", ".alp" })
                        parts.insert(normalisedRecordName(part + kind));
        return parts;
    }

    // The same of the desk: our guide's eyes would shut on what is another's now.
    void leaveOutOurBlinks() const
    {
        const fs::path own = partOf(folder_, "data");
        for (const std::string guide : { "desk_waiting", "desk_glad" }) {
            const std::string blink = guide + "_blink.png";
            if (fs::exists(own / (guide + ".png")) && !fs::exists(own / blink))
                fs::remove(out_ / "data" / blink);
        }
    }

    // The artist's records, and those of the complete content whose names they do not have.
    [[nodiscard]] Records completed(Records records) const
    {
        if (over_.empty())
            return records;
        std::set<std::string> own;
        for (auto& record : records)
            for (const ArchiveRecord& each : listRecords(record).records)
                own.insert(normalisedRecordName(each.name));
        own.merge(facesOf(own));
        const OpenArchive base = openArchive((over_ / archivePath).string());
        for (const ArchiveRecord& each : base.list.records)
            if (!own.contains(normalisedRecordName(each.name)))
                records.emplace_back(each.bytes.begin(), each.bytes.end());
        return records;
    }

    fs::path folder_;
    fs::path out_;
    fs::path over_;
};

} // namespace

void addContentCommand(CLI::App& app)
{
    const auto options = std::make_shared<ContentOptions>();
    CLI::App* command = app.add_subcommand("content",
        "Make a folder of pictures and sounds into one that the player takes with --content");
    command
        ->add_option("folder", options->folder,
            "The artist's folder: manifest.txt, PNG pictures; WAV sounds in audio/; files in data/")
        ->required();
    command->add_option("out", options->out, "The folder to write to")->required();
    command->add_option("--over", options->over,
        "Complete content, from which everything comes that the folder does not have");
    command->callback([options] { ContentMaker(*options).make(); });
}

} // namespace kez::tools
