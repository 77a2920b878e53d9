// SPDX-License-Identifier: MIT
/// The player's desk, shown while no activity runs: the picture that was handed back in a frame,
/// three large buttons, and notes about what is missing.
#pragma once

#include "handed_back.h"
#include "picture.h"

#include <windows.h>

#include <ddraw.h>

#include <array>
#include <optional>
#include <string>

namespace kez::player {

enum class DeskChoice { Camera, Book, Quit };
constexpr std::size_t deskChoices = 3;

class Desk {
public:
    /// Reads the desk's artwork from the directory; what cannot be read is drawn plainly.
    explicit Desk(const std::string& artwork);

    void lay(HandedBack handedBack);

    /// What is missing, for a grown-up to read: shown in the frame while there is no picture.
    void setNotes(const std::string& notes);

    /// The guide on the desk shuts its eyes for a moment now and then. True when that changes the
    /// desk.
    bool passTime(DWORD now);

    /// Lights the button under the pointer, if any; true when that changes the desk.
    bool point(int x, int y);
    [[nodiscard]] std::optional<DeskChoice> press(int x, int y);
    [[nodiscard]] std::optional<DeskChoice> key(int virtualKey);

    /// The whole desk. `paper` is a surface of 640 × 480 pixels and 32 bits to write the texts on.
    [[nodiscard]] Picture draw(IDirectDrawSurface& paper) const;

private:
    struct Guide {
        Picture awake;
        Picture shutEyes; ///< Over it; may be missing.
    };

    static Guide readGuide(const std::string& artwork, const std::string& name);
    [[nodiscard]] const Guide& guide() const;
    void step(int by); ///< To the next or previous button.
    void drawSheets(Picture& page) const;
    void writeTexts(HDC context) const;

    Picture backdrop_;
    Guide guideWaits_; ///< With an empty frame; else the next.
    Guide guideIsGlad_;
    std::optional<DWORD> since_; ///< The desk is as it is now, but for its buttons.
    bool blinks_ = false;
    std::array<Picture, deskChoices> lit_;
    HandedBack handedBack_;
    std::string notes_;
    std::optional<std::size_t> chosen_;
};

} // namespace kez::player
