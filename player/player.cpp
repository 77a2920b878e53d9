// SPDX-License-Identifier: MIT
#include "player.h"

#include "handed_back.h"
#include "open_module.h"
#include "png_file.h"
#include "start_checks.h"

#include "host/kez.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <mmsystem.h>

#include <filesystem>
#include <iostream>
#include <utility>

namespace kez::player {

namespace {

constexpr DWORD deskPauseMs = 15;
constexpr const char* artwork = "data"; // of desk and captions, in the content's directory

DisplayPlace placeFor(const Options& options)
{
    if (options.headless)
        return DisplayPlace::OffScreen;
    return options.fullScreen ? DisplayPlace::FullScreen : DisplayPlace::InWindow;
}

} // namespace

Player::Player(const Options& options, Places places, std::vector<Step> steps)
    : options_(options)
    , places_(std::move(places))
    , isVisit_(!options.visit.empty())
    , visit_(std::move(steps), *this)
    , copies_(places_.data + "\\export", places_.pictures)
{
}

ExitCode Player::play()
{
    if (!prepare())
        return ExitCode::Failed;
    const OpenModule module(window_->handle(), sound_.get(), *display_, places_.data);
    enterVoices();
    notes_ = startNotes();
    std::cerr << notes_;
    desk_->setNotes(notes_);
    if (notes_.empty())
        startRun(options_.activity);
    while (window_->pump() && !quits_) {
        if (isVisit_ && !passVisit())
            break;
        pass();
    }
    if (runs_) // and the window was closed
        std::cout << copies_.runEnds();
    return exitCode_;
}

// Everything that a run needs; complains about the first thing that is not there.
bool Player::prepare()
{
    window_ = std::make_unique<HostWindow>(static_cast<WindowClient&>(*this),
        options_.headless ? WindowShown::Never : WindowShown::OnScreen);
    if (!*window_)
        return complain("No window can be shown here. With --headless and --visit FILE the program "
                        "plays without one.");
    if (const std::string missing = unusableContent(places_.content); !missing.empty())
        return complain(missing);
    std::error_code error;
    std::filesystem::current_path(desktop::pathOf(places_.content), error);
    if (error)
        return complain(places_.content + " cannot be entered: " + error.message());
    display_ = std::make_unique<Display>(window_->handle(), options_.depth, placeFor(options_));
    if (!*display_)
        return complain("The display does not serve: " + display_->problem() + ".");
    paper_ = display_->makePaper();
    desk_ = std::make_unique<Desk>(artwork);
    // Without a window nobody listens, and a visit's clock is not the sound's.
    if (!options_.headless)
        sound_ = makeSoundOutput(window_->handle());
    if (!options_.headless && sound_ == nullptr)
        std::cerr << "There is no sound output, so the guide is silent; --captions shows what it "
                     "says, and kez-player --doctor tells more.\n";
    return prepareGuide() && claimData();
}

// Two at once would give their pictures the same names, and each write over the other's.
bool Player::claimData()
{
    std::error_code ignored; // whether it can be written is told later
    std::filesystem::create_directories(desktop::pathOf(places_.data), ignored);
    claim_.emplace(places_.data);
    if (claim_->isRefused())
        return complain("The pictures in " + places_.data
            + " are open in another Kez. Close that one first, or keep other pictures with "
              "--data DIR.");
    removeUnfinished(places_.data);
    return true;
}

// The language's voice, captions and log.
bool Player::prepareGuide()
{
    const std::string voices = voiceDirectory(places_.content, options_.language);
    if (options_.language != "en" && !files::isDirectory(voices + "/audio"))
        return complain("The guide does not speak \"" + options_.language + "\": " + voices
            + "/audio is not there. Choose one of " + languagesOf(places_.content)
            + " with --language.");
    if (options_.captions) {
        captions_.read(voices + "/audio/captions.txt");
        if (captions_.empty())
            return complain(voices
                + "/audio/captions.txt holds no captions. Build the content "
                  "(./run does), or start without --captions.");
        if (!display_->makeStage(artwork))
            return complain("There is no memory for captions; start without --captions.");
    }
    if (places_.log.empty())
        return true;
    log_.open(places_.log);
    return log_ ? true
                : complain(places_.log + " cannot be written. Name another file with --log FILE.");
}

// The archive has been read; from now on the module looks for nothing but sounds.
void Player::enterVoices()
{
    std::error_code ignored; // prepareGuide has seen it
    std::filesystem::current_path(
        desktop::pathOf(voiceDirectory(places_.content, options_.language)), ignored);
}

void Player::note(const std::string& event)
{
    if (log_.is_open())
        log_ << timeGetTime() << ' ' << event << std::endl;
}

void Player::guideSpeaks(int clip, DWORD durationMs)
{
    note("guide " + std::to_string(clip));
    captions_.say(clip, durationMs, timeGetTime());
}

// A line for each thing that is wrong but bearable.
std::string Player::startNotes()
{
    std::string notes = dataNote(places_.data);
    if (!display_->problem().empty())
        notes += display_->problem() + ".\n";
    return notes + cameraNote(camera_, places_.content, places_.camera);
}

// In a box for a person at a window; visits and headless starts read it on standard error.
bool Player::complain(const std::string& text) const
{
    if (options_.headless || isVisit_)
        std::cerr << "kez-player: " << text << '\n';
    else
        MessageBoxA(window_->handle(), text.c_str(), "Kez", MB_OK | MB_ICONERROR);
    return false;
}

void Player::pass()
{
    if (runs_) {
        runs_ = Kez::process() && !Kez::exit;
        display_->showStage(captions_.text(timeGetTime()));
        if (!runs_)
            endRun();
        // The module paces itself by the time between frames, and on a visit's clock a pass takes
        // none: a clock that never moved would never let it pause again.
        Sleep(1);
        return;
    }
    deskIsStale_ |= desk_->passTime(timeGetTime());
    if (deskIsStale_)
        drawDesk();
    Sleep(deskPauseMs);
}

// False when the visit is over.
bool Player::passVisit()
{
    const VisitState state = visit_.pass();
    if (state == VisitState::Failed) {
        std::cerr << options_.visit << ':' << visit_.line() << ": " << visit_.complaint() << '\n';
        exitCode_ = ExitCode::VisitFailed;
    }
    return state == VisitState::GoesOn;
}

void Player::startRun(Activity activity)
{
    copies_.runStarts();
    Kez::run(activity == Activity::Camera ? Kez::camera : Kez::book, options_.diskBudget,
        options_.song, options_.intro);
    runs_ = true;
    note(activity == Activity::Camera ? "run camera" : "run book");
}

void Player::endRun()
{
    note("exit");
    const std::string copied = copies_.runEnds();
    std::cout << copied << std::flush;
    desk_->setNotes(notes_ + copied);
    HandedBack handedBack = takeHandedBack();
    if (!places_.handedBack.empty() && !handedBack.picture.empty()
        && !writePng(places_.handedBack, handedBack.picture)) {
        std::cerr << "kez-player: " << places_.handedBack
                  << " cannot be written; name another file with --handed-back FILE\n";
        exitCode_ = ExitCode::Failed;
    }
    desk_->lay(std::move(handedBack));
    drawDesk();
}

void Player::drawDesk()
{
    if (paper_ != nullptr)
        display_->show(desk_->draw(*paper_));
    deskIsStale_ = false;
}

void Player::choose(std::optional<DeskChoice> choice)
{
    deskIsStale_ = true;
    if (!choice)
        return;
    if (*choice == DeskChoice::Quit)
        quits_ = true;
    else
        startRun(*choice == DeskChoice::Camera ? Activity::Camera : Activity::Book);
}

void Player::pointerMoved(int x, int y)
{
    if (runs_ || desk_ == nullptr)
        return;
    HostWindow::showPointer();
    deskIsStale_ |= desk_->point(x, y);
}

void Player::pointerPressed(int x, int y)
{
    if (!runs_ && desk_ != nullptr)
        choose(desk_->press(x, y));
}

void Player::keyPressed(int virtualKey)
{
    if (!runs_ && desk_ != nullptr)
        choose(desk_->key(virtualKey));
}

void Player::movePointer(int x, int y)
{
    SetCursorPos(x, y);
}

void Player::sendMessage(UINT message, WPARAM word, LPARAM detail)
{
    window_->send(message, word, detail);
}

bool Player::keepShot(const std::string& file)
{
    const auto shown = display_->shown();
    return shown
        && writePng(
            desktop::textOf(desktop::pathOf(places_.shots) / desktop::pathOf(file)), *shown);
}

int Player::picturesArrived() const
{
    return countCameraPictures(places_.data);
}

DWORD Player::now() const
{
    return timeGetTime();
}

} // namespace kez::player
