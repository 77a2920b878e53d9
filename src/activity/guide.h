// SPDX-License-Identifier: MIT
/// The guide character's voice: 29 spoken clips, of which at most one plays at a time. A new clip
/// cuts the previous one off. A clip's sound is loaded only while it is the playing clip.
#pragma once

#include "core/list.h"
#include "display/cursor.h"
#include "media/sound.h"

#include <cstdint>
#include <optional>

namespace kez {

class GuideClip : public Object {
public:
    GuideClip(std::int32_t id, const char* sound);

    std::int32_t kind = 0; ///< 0 for every clip of the guide.
    std::int32_t clipId; ///< The number by which the activity asks for the clip.
    String texts[3]; ///< Carried, not read.
    String soundName; ///< "kez00" to "kez28".
    Sound voice; ///< Named and loaded when the clip plays.
};

/// The clips in the order of their sounds, and the one that plays.
class Guide : public List {
public:
    Guide();

    /// Plays the first clip of that kind and number from its beginning. A number that no clip has
    /// changes nothing.
    void playClip(std::int32_t kind, std::int32_t clipId);
    void stop(); ///< Silences and unloads the playing clip, if any.

    [[nodiscard]] GuideClip* playing() const { return playing_; } ///< Also after its sound ended.

    [[nodiscard]] std::uint32_t startedAt() const { return startedAt_; } ///< Its frame's time.

    /// Where on the stage the playing clip's subject is, if it has one. A new clip has none at
    /// first.
    [[nodiscard]] std::optional<StagePoint> subject() const { return subject_; }

    void setSubject(StagePoint place) { subject_ = place; }

    /// Hears of every clip that starts, with its duration (0 when it cannot be heard), and of clip
    /// 0 when the guide is silenced.
    using Listener = void (*)(int clipId, unsigned durationMs);

    void setListener(Listener listener) { listener_ = listener; } ///< Null: nobody.

private:
    void unloadPlaying();

    Listener listener_ = nullptr;
    GuideClip* playing_ = nullptr;
    std::uint32_t startedAt_ = 0;
    std::optional<StagePoint> subject_;
};

Guide& guide();

/// What the clips say, by occasion. A button's help clip is listed with the button.
namespace clip {
constexpr int help = 100; ///< Help mode: the help button.
constexpr int introduction = 1;
constexpr int bookCamera = 2; ///< Help mode: the book's camera button.
constexpr int camera = 3;
constexpr int book = 4;
constexpr int save = 5;
constexpr int importPicture = 6;
constexpr int exportPicture = 7; ///< Also: export with nothing selected.
constexpr int trash = 8;
constexpr int giveBack = 9;
constexpr int turnPage = 10;
constexpr int saveQuestion = 12;
constexpr int noRoom = 13; ///< The disk budget is used up.
constexpr int notStored = 14;
constexpr int unreadable = 16;
constexpr int imported = 17; ///< On the camera screen.
constexpr int nothingToSave = 20;
constexpr int bookCell = 21; ///< Help mode: a cell of the book that holds a picture.
constexpr int nameRefused = 22;
constexpr int exported = 25;
constexpr int saved = 26;
constexpr int importedIntoBook = 28;

/// All of them; the other clips of the guide are never asked for.
constexpr int asked[] = { help, introduction, bookCamera, camera, book, save, importPicture,
    exportPicture, trash, giveBack, turnPage, saveQuestion, noRoom, notStored, unreadable, imported,
    nothingToSave, bookCell, nameRefused, exported, saved, importedIntoBook };
} // namespace clip

void sayGuide(int clipId); ///< `guide().playClip(0, clipId)`.
void explain(const Graphic& thing, int clipId); ///< The same, of something on the screen.
void stopGuide();

} // namespace kez
