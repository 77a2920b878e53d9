// SPDX-License-Identifier: MIT
/// The host program: lends the module a window, surfaces and a directory, starts its activities
/// and shows what they hand back.
#pragma once

#include "camera_source.h"
#include "captions.h"
#include "desk.h"
#include "display.h"
#include "export_copies.h"
#include "host_window.h"
#include "options.h"
#include "places.h"
#include "sound_output.h"
#include "visit_player.h"

#include "platform/desktop.h"

#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kez::player {

class Player : private WindowClient, private VisitHost {
public:
    /// `steps` is the visit that `options` names; empty for a person's own visit.
    Player(const Options& options, Places places, std::vector<Step> steps);
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    /// From the window's opening to its closing. What is missing is told in a box or on standard
    /// error; what is wrong but bearable, on the desk before the first run.
    [[nodiscard]] ExitCode play();

private:
    bool prepare();
    bool prepareGuide();
    bool claimData();
    void enterVoices();
    void note(const std::string& event);
    [[nodiscard]] std::string startNotes();
    bool complain(const std::string& text) const; ///< Always false.

    void pass();
    bool passVisit();
    void startRun(Activity activity);
    void endRun();
    void choose(std::optional<DeskChoice> choice);
    void drawDesk();

    void pointerMoved(int x, int y) override;
    void pointerPressed(int x, int y) override;
    void keyPressed(int virtualKey) override;

    void needsDrawing() override { deskIsStale_ = true; }

    void guideSpeaks(int clip, DWORD durationMs) override;

    void movePointer(int x, int y) override;
    void sendMessage(UINT message, WPARAM word, LPARAM detail) override;

    bool takePicture() override { return camera_.takePicture(); }

    bool setPlugged(bool plugged) override { return camera_.setPlugged(plugged); }

    [[nodiscard]] std::string cameraProblem() const override { return camera_.problem(); }

    bool keepShot(const std::string& file) override;
    [[nodiscard]] int picturesArrived() const override;

    [[nodiscard]] bool runs() const override { return runs_; }

    [[nodiscard]] DWORD now() const override;

    Options options_;
    Places places_;
    bool isVisit_;
    VisitPlayer visit_;
    ExportCopies copies_;
    CameraSource camera_;
    std::unique_ptr<HostWindow> window_;
    std::unique_ptr<Display> display_;
    ComPointer<IDirectSound> sound_;
    Captions captions_;
    std::ofstream log_;
    std::optional<desktop::Claim> claim_; ///< To the pictures' directory.
    ComPointer<IDirectDrawSurface> paper_;
    std::unique_ptr<Desk> desk_;
    std::string notes_; ///< What is wrong but bearable since the start.
    bool runs_ = false;
    bool deskIsStale_ = true;
    bool quits_ = false;
    ExitCode exitCode_ = ExitCode::Fine;
};

} // namespace kez::player
