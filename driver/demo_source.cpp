// SPDX-License-Identifier: MIT
/// Pictures that come with the program: the camera has three when it is first opened, and takes one
/// every ten seconds until there have been six. A press of the button takes the next one at once;
/// after the last the first comes again.
#include "diagnostics.h"
#include "photograph.h"
#include "picture_source.h"
#include "platform/files.h"

#include <algorithm>
#include <vector>

namespace kez::driver {

namespace {

constexpr int mostPictures = 20;
constexpr int picturesAtStart = 3;
constexpr int picturesUnasked = 6;
constexpr std::uint32_t pauseMs = 10'000;

class DemoSource final : public PictureSource {
public:
    explicit DemoSource(std::vector<std::string> paths)
        : paths_(std::move(paths))
    {
    }

    std::optional<Picture> next(std::uint32_t now, Shutter shutter) override
    {
        if (taken_ == 0)
            start_ = now;
        while (!paths_.empty() && (shutter == Shutter::Pressed || isDue(now))) {
            const std::size_t at = static_cast<std::size_t>(taken_) % paths_.size();
            std::string problem;
            files::Reader file(paths_[at]);
            if (const std::optional<Picture> picture = readPhotograph(file, problem)) {
                ++taken_;
                return picture;
            }
            tell(paths_[at], problem);
            paths_.erase(paths_.begin() + static_cast<std::ptrdiff_t>(at));
        }
        return std::nullopt;
    }

    int atStart() const override { return std::min(picturesAtStart, count()); }

private:
    int count() const { return static_cast<int>(paths_.size()); }

    bool isDue(std::uint32_t now) const
    {
        const int unasked = std::min(picturesUnasked, count());
        if (taken_ < picturesAtStart || taken_ >= unasked)
            return taken_ < unasked;
        const auto pauses = static_cast<std::uint32_t>(taken_ - picturesAtStart + 1);
        return now - start_ >= pauses * pauseMs;
    }

    std::vector<std::string> paths_;
    int taken_ = 0;
    std::uint32_t start_ = 0;
};

} // namespace

std::shared_ptr<PictureSource> makeDemoSource(std::string_view directory, std::string& problem)
{
    std::vector<std::string> paths;
    for (int number = 1; number <= mostPictures; ++number)
        for (const char* const extension : { ".jpg", ".jpeg", ".png" }) {
            std::string path(directory);
            path.append("/demo").append(std::to_string(number)).append(extension);
            if (!files::exists(path))
                continue;
            paths.push_back(std::move(path));
            break;
        }
    if (!paths.empty())
        return std::make_shared<DemoSource>(std::move(paths));
    problem = "There are no demo pictures (demo1.jpg and so on) in " + std::string(directory) + ".";
    return nullptr;
}

} // namespace kez::driver
