// SPDX-License-Identifier: MIT
#include "content_check.h"

#include "platform/files.h"
#include "platform/path_names.h"
#include "sheet.h"
#include "sound_file.h"
#include "sprite_pixels.h"
#include "sprites/sprite_record.h"
#include "user_error.h"

#include <algorithm>
#include <set>

namespace kez::tools {

namespace {

/// On the sheet; `right` and `bottom` are the first column and row behind it.
struct Box {
    int left;
    int top;
    int right;
    int bottom;

    [[nodiscard]] bool holds(const Box& other) const
    {
        return other.left >= left && other.top >= top && other.right <= right
            && other.bottom <= bottom;
    }

    [[nodiscard]] bool touches(const Box& other) const
    {
        return other.left < right && left < other.right && other.top < bottom && top < other.bottom;
    }
};

constexpr Box sheet { 0, 0, sheetWidth, sheetHeight };

Box boxAt(int x, int y, int width, int height)
{
    const int left = x + centred(width, sheetWidth);
    const int top = y + centred(height, sheetHeight);
    return { left, top, left + width, top + height };
}

std::string told(const Box& box)
{
    return "(" + std::to_string(box.left) + ", " + std::to_string(box.top) + ") to ("
        + std::to_string(box.right - 1) + ", " + std::to_string(box.bottom - 1) + ")";
}

struct Picture {
    std::string name;
    const ArchiveRecord* record;
    SpriteView sprite;
    Box box;
};

class PictureCheck {
public:
    PictureCheck(std::span<const ArchiveRecord> records, Findings& findings)
        : records_(records)
        , findings_(findings)
    {
    }

    void screen(const ScreenNeeds& needs)
    {
        const auto ground = take(needs.ground,
            needs.fillsScreen ? "the whole picture of " + needs.title
                              : "the picture of " + needs.title);
        std::vector<Picture> buttons;
        for (const std::string& name : needs.buttons) {
            if (auto button
                = take(name, "a button of " + needs.title + " as it looks under the pointer"))
                buttons.push_back(*button);
        }
        if (ground) {
            checkGround(needs, *ground);
            for (const Picture& button : buttons)
                checkOverGround(button, *ground);
            checkDepths(buttons, *ground);
        }
        for (const Picture& button : buttons)
            checkPlaces(needs, button);
        checkOverlaps(buttons);
    }

    // Content need not have them; those that it has lie on their picture.
    void face(const FaceNeeds& needs)
    {
        const auto bearer = find(needs.bearer);
        for (const std::string& name : needs.parts) {
            const auto part = find(name);
            if (part && bearer)
                checkOverGround(*part, *bearer);
        }
    }

    void pointer(const std::string& name)
    {
        constexpr int smallest = 30; // the tip lies 15 pixels left of the middle and above it
        constexpr int largest = 96;
        const auto picture = take(name, "one of the pointers");
        if (!picture)
            return;
        const int width = picture->sprite.width();
        const int height = picture->sprite.height();
        if (std::min(width, height) < smallest || std::max(width, height) > largest)
            fault(name,
                sizeOf(*picture)
                    + "; a pointer has 30 x 30 to 96 x 96, best 32 x 32 with its tip in the upper "
                      "left corner (draw it on a sheet of just that size)");
    }

    void rest() const
    {
        for (const ArchiveRecord& record : records_) {
            const std::string name = normalisedRecordName(record.name);
            if (name.ends_with(".sp5") && !taken_.contains(name))
                findings_.notes.push_back(
                    record.name + " is shown by no screen; is the name spelt right?");
        }
    }

private:
    void fault(const std::string& name, const std::string& what) const
    {
        findings_.faults.push_back(name + ": " + what);
    }

    static std::string sizeOf(const Picture& picture)
    {
        return "it has " + std::to_string(picture.sprite.width()) + " x "
            + std::to_string(picture.sprite.height()) + " pixels";
    }

    // Empty when it is missing, or not to be drawn: that has been reported with the records.
    std::optional<Picture> take(const std::string& name, const std::string& what)
    {
        if (recordNamed(records_, name + ".sp5") == nullptr)
            fault(name,
                "it is missing. It is " + what + "; draw it, and write \"sprite " + name
                    + "\" into the manifest");
        return find(name);
    }

    // The same of what may be missing.
    std::optional<Picture> find(const std::string& name)
    {
        const std::string recordName = name + ".sp5";
        taken_.insert(normalisedRecordName(recordName));
        const ArchiveRecord* record = recordNamed(records_, recordName);
        if (record == nullptr)
            return std::nullopt;
        const char* reason = nullptr;
        const auto sprite = SpriteView::parse(record->bytes, reason);
        if (!sprite || !sprite->isDrawable())
            return std::nullopt;
        return Picture { name, record, *sprite,
            boxAt(sprite->x(), sprite->y(), sprite->width(), sprite->height()) };
    }

    void checkGround(const ScreenNeeds& needs, const Picture& ground) const
    {
        if (!sheet.holds(ground.box))
            fault(ground.name,
                "it reaches from " + told(ground.box)
                    + " and so out of the screen, which has 640 x 480 pixels");
        if (!needs.fillsScreen)
            return checkInside(needs, ground);
        if (!ground.box.holds(sheet))
            fault(ground.name,
                sizeOf(ground) + " and does not fill the screen; draw all of 640 x 480");
        if (ground.sprite.pixelBits() != 32 || ground.sprite.mode() != SpriteMode::Raw)
            fault(ground.name,
                "photographs are painted into it, which its form does not allow; write form=raw32 "
                "keep behind its name in the manifest");
        std::string unused;
        const auto pixels = spritePixels(records_, *ground.record, ground.sprite, unused);
        if (pixels && std::ranges::any_of(*pixels, [](auto pixel) { return pixel >> 24 != 255; }))
            fault(ground.name, "it can be seen through; fill all of its background");
    }

    void checkInside(const ScreenNeeds& needs, const Picture& ground) const
    {
        for (const auto& [title, at] : needs.places) {
            const Box box = boxAt(at.x, at.y, at.width, at.height);
            if (!ground.box.holds(box))
                fault(ground.name,
                    "it does not reach below " + title + " at " + told(box) + "; draw it larger");
        }
    }

    void checkOverGround(const Picture& button, const Picture& ground) const
    {
        if (!ground.box.holds(button.box))
            fault(button.name,
                "it reaches from " + told(button.box) + " and so beyond " + ground.name + " ("
                    + told(ground.box) + "); move it, or cut it");
    }

    // One is told of: the others follow from the same mistake.
    void checkDepths(std::span<const Picture> buttons, const Picture& ground) const
    {
        const auto hidden = std::ranges::find_if(buttons,
            [&](const Picture& button) { return button.sprite.depth() >= ground.sprite.depth(); });
        if (hidden != buttons.end())
            fault(ground.name,
                "it hides " + hidden->name + ": their depths are "
                    + std::to_string(ground.sprite.depth()) + " and "
                    + std::to_string(hidden->sprite.depth())
                    + ", and what lies behind has the larger depth");
    }

    // The first place that it covers will do: neighbours follow from the same mistake.
    void checkPlaces(const ScreenNeeds& needs, const Picture& button) const
    {
        for (const auto& [title, at] : needs.places) {
            const Box box = boxAt(at.x, at.y, at.width, at.height);
            if (button.box.touches(box))
                return fault(button.name,
                    "it covers " + title + " of " + needs.title + " at " + told(box) + "; move it");
        }
    }

    void checkOverlaps(std::span<const Picture> buttons) const
    {
        for (std::size_t i = 0; i < buttons.size(); ++i)
            for (std::size_t j = 0; j < i; ++j)
                if (buttons[i].box.touches(buttons[j].box))
                    findings_.notes.push_back(buttons[i].name + " and " + buttons[j].name
                        + " overlap; where they do, only one of them can be clicked");
    }

    std::span<const ArchiveRecord> records_;
    Findings& findings_;
    std::set<std::string> taken_;
};

void checkSound(
    const std::string& folder, const std::string& name, const std::string& what, Findings& findings)
{
    const std::string path = folder + "/" + name + ".wv5";
    if (!files::exists(path)) {
        findings.faults.push_back(path + " is missing. It is " + what + "; record " + name
            + ".wav, and turn it into a record with kez sound encode (or kez content)");
        return;
    }
    try {
        const LoadedSound sound = loadSound(path);
        if (std::ranges::all_of(sound.samples, [](std::uint8_t s) { return s == 128; }))
            findings.notes.push_back(path + " is silent all through");
    } catch (const UserError& error) {
        findings.faults.emplace_back(error.what());
    }
}

// Any line of the guide: our own has some in reserve.
bool isClipName(std::string_view name)
{
    return name.size() == 5 && files::sameName(name.substr(0, 3), "kez")
        && name.find_first_not_of("0123456789", 3) == std::string_view::npos;
}

void noteUnplayed(const ContentNeeds& needs, const std::string& song, const std::string& folder,
    Findings& findings)
{
    std::vector<std::string> played { song };
    played.insert(played.end(), needs.sounds.begin(), needs.sounds.end());
    for (const files::Entry& file : files::list(folder, "wv5")) {
        const std::string name = file.name.substr(0, file.name.rfind('.'));
        const auto isIt
            = [&name](const std::string& other) { return files::sameName(name, other); };
        if (!isClipName(name) && std::ranges::none_of(played, isIt))
            findings.notes.push_back(
                folder + "/" + file.name + " is played nowhere; is the name spelt right?");
    }
}

} // namespace

void checkPictures(
    const ContentNeeds& needs, std::span<const ArchiveRecord> records, Findings& findings)
{
    PictureCheck check(records, findings);
    for (const ScreenNeeds& screen : needs.screens)
        check.screen(screen);
    for (const FaceNeeds& face : needs.faces)
        check.face(face);
    for (const std::string& pointer : needs.pointers)
        check.pointer(pointer);
    check.rest();
}

void checkSounds(const ContentNeeds& needs, const std::string& song, const std::string& folder,
    Findings& findings)
{
    if (!files::isDirectory(folder)) {
        findings.faults.push_back(folder
            + ": there is no such folder, and the sounds should lie in it. Name theirs with "
              "--audio, or look at the pictures alone with --no-audio");
        return;
    }
    for (const std::string& name : needs.sounds)
        checkSound(folder, name, "a sound of the screens", findings);
    for (const std::string& name : needs.clips)
        checkSound(folder, name, "something that the guide says", findings);
    checkSound(folder, song, "the song", findings);
    noteUnplayed(needs, song, folder, findings);
}

} // namespace kez::tools
