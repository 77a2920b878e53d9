// SPDX-License-Identifier: MIT
/// kez content: an artist's folder becomes a folder that the player takes. What the artist has not
/// made is taken from content that is complete already.
#include "activity/content_needs.h"
#include "archive_listing.h"
#include "archive_packer.h"
#include "archive_writer.h"
#include "commands.h"
#include "platform/files.h"
#include "sound_encoding.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
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
        for (const std::string& remark : packed.remarks)
            std::printf("%s\n", remark.c_str());
        if (!over_.empty())
            for (const char* part : { "data", "audio", "languages" })
                copyOver(over_ / part, out_ / part);
        copyOver(folder_ / "data", out_ / "data");
        makeSounds();
        makeFolder(out_ / "data");
        const std::string archive = (out_ / archivePath).string();
        const ArchiveSize size = writeArchive(archive, records, ArchiveForm::Compressed);
        std::printf("%s: %zu pictures of %s, %zu records, %zu bytes\n", archive.c_str(),
            packed.items, folder_.string().c_str(), records.size(), size.file);
    }

private:
    // Sounds that have not changed are not encoded again: the song takes its time.
    void makeSounds() const
    {
        const fs::path encoded = out_ / "encoded";
        if (!fs::is_directory(folder_ / "audio"))
            return;
        makeFolder(encoded);
        makeFolder(out_ / "audio");
        for (const auto& file : fs::directory_iterator(folder_ / "audio")) {
            const fs::path& path = file.path();
            if (!file.is_regular_file())
                continue;
            if (path.extension() != ".wav") {
                copyFile(path, out_ / "audio" / path.filename());
                continue;
            }
            const std::string name = path.stem().string() + ".wv5";
            if (!fs::exists(encoded / name)
                || fs::last_write_time(encoded / name) <= fs::last_write_time(path))
                encode(path, encoded / name);
            copyFile(encoded / name, out_ / "audio" / name);
        }
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
