// SPDX-License-Identifier: MIT
/// A person's own photographs: each new one in the folder is a picture just taken. A press of the
/// button takes the next new one, or, when there is none, one of the earlier ones again.
#include "diagnostics.h"
#include "folder_watch.h"
#include "photograph.h"
#include "picture_source.h"
#include "platform/files.h"

#include <vector>

namespace kez::driver {

namespace {

class FolderSource final : public PictureSource {
public:
    explicit FolderSource(std::string directory)
        : watch_(std::move(directory))
    {
    }

    std::optional<Picture> next(std::uint32_t now, Shutter shutter) override
    {
        watch_.look(now);
        while (const std::optional<std::string> path = watch_.next()) {
            const std::optional<Picture> picture = read(*path);
            watch_.settle(picture.has_value());
            if (!picture)
                continue;
            if (taken_.size() < mostRemembered)
                taken_.push_back(*path);
            return picture;
        }
        return shutter == Shutter::Pressed ? again() : std::nullopt;
    }

private:
    static constexpr std::size_t mostRemembered = 1000;

    static std::optional<Picture> read(const std::string& path)
    {
        std::string problem;
        files::Reader file(path, files::Naming::TheSystems);
        const std::optional<Picture> picture = readPhotograph(file, problem);
        if (!picture)
            tell(path, problem);
        return picture;
    }

    // One of the earlier ones, each in turn; those that have gone meanwhile are forgotten.
    std::optional<Picture> again()
    {
        while (!taken_.empty()) {
            const std::size_t at = again_ % taken_.size();
            if (const std::optional<Picture> picture = read(taken_[at])) {
                again_ = at + 1;
                return picture;
            }
            taken_.erase(taken_.begin() + static_cast<std::ptrdiff_t>(at));
        }
        return std::nullopt;
    }

    FolderWatch watch_;
    std::vector<std::string> taken_;
    std::size_t again_ = 0;
};

} // namespace

std::shared_ptr<PictureSource> makeFolderSource(std::string_view directory, std::string& problem)
{
    if (files::isDirectory(directory, files::Naming::TheSystems))
        return std::make_shared<FolderSource>(std::string(directory));
    problem = directory.empty()
        ? "Say which folder the pictures are in: folder:DIR."
        : "There is no folder " + std::string(directory) + " to take pictures from.";
    return nullptr;
}

} // namespace kez::driver
