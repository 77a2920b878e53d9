// SPDX-License-Identifier: MIT
#include "visit_player.h"

#include <cctype>
#include <utility>

namespace kez::player {

namespace {

constexpr DWORD patienceMs = 60'000;

LPARAM point(const Step& step)
{
    return MAKELPARAM(step.x, step.y);
}

// The character that the system makes of a key, 0 for keys that only act.
int characterOf(int virtualKey)
{
    switch (virtualKey) {
    case VK_RETURN:
    case VK_ESCAPE:
    case VK_BACK:
    case VK_TAB:
    case VK_SPACE:
        return virtualKey; // these keys bear the codes of their characters
    default:
        return std::isalnum(virtualKey) != 0 && virtualKey <= 'Z' ? std::tolower(virtualKey) : 0;
    }
}

} // namespace

VisitPlayer::VisitPlayer(std::vector<Step> steps, VisitHost& host)
    : steps_(std::move(steps))
    , host_(host)
{
}

VisitState VisitPlayer::pass()
{
    if (next_ == steps_.size())
        return VisitState::Ended;
    const Step& step = steps_[next_];
    line_ = step.line;
    if (moves_ == 0)
        stepStarted_ = host_.now();
    if (step.kind == StepKind::Quit)
        return VisitState::Ended;
    const bool done = advance(step);
    ++moves_;
    if (!complaint_.empty())
        return VisitState::Failed;
    if (done) {
        ++next_;
        moves_ = 0;
    }
    return VisitState::GoesOn;
}

bool VisitPlayer::advance(const Step& step)
{
    switch (step.kind) {
    case StepKind::Wait:
        return host_.now() - stepStarted_ >= static_cast<DWORD>(step.number);
    case StepKind::Move:
        host_.movePointer(step.x, step.y);
        host_.sendMessage(WM_MOUSEMOVE, 0, point(step));
        return true;
    case StepKind::Click:
        return click(step);
    case StepKind::Key:
        sendKey(step.number, characterOf(step.number));
        return true;
    case StepKind::Type:
        return typeNext(step);
    case StepKind::Take:
        return demand(host_.takePicture(), "the camera takes no picture: " + host_.cameraProblem());
    case StepKind::Unplug:
        return demand(
            host_.setPlugged(false), "the camera stays plugged in: " + host_.cameraProblem());
    case StepKind::Plug:
        return demand(
            host_.setPlugged(true), "the camera stays unplugged: " + host_.cameraProblem());
    case StepKind::Shot:
        return demand(host_.keepShot(step.text), step.text + " cannot be written");
    case StepKind::UntilPictures:
        return waitFor(host_.picturesArrived() >= step.number,
            std::to_string(step.number)
                + " pictures, but so many have come: " + std::to_string(host_.picturesArrived()));
    case StepKind::UntilExit:
        return waitFor(!host_.runs(), "the end of the activity, which goes on");
    case StepKind::Quit:
        break;
    }
    return true;
}

// The loop passes between the three messages, as it does between a person's.
bool VisitPlayer::click(const Step& step)
{
    switch (moves_) {
    case 0:
        host_.movePointer(step.x, step.y);
        host_.sendMessage(WM_MOUSEMOVE, 0, point(step));
        return false;
    case 1:
        host_.sendMessage(WM_LBUTTONDOWN, MK_LBUTTON, point(step));
        return false;
    default:
        host_.sendMessage(WM_LBUTTONUP, 0, point(step));
        return true;
    }
}

bool VisitPlayer::typeNext(const Step& step)
{
    const auto at = static_cast<std::size_t>(moves_);
    const int character = static_cast<unsigned char>(step.text[at]);
    sendKey(std::toupper(character), character);
    return at + 1 == step.text.size();
}

void VisitPlayer::sendKey(int virtualKey, int character)
{
    host_.sendMessage(WM_KEYDOWN, static_cast<WPARAM>(virtualKey), 1);
    if (character != 0)
        host_.sendMessage(WM_CHAR, static_cast<WPARAM>(character), 1);
    host_.sendMessage(WM_KEYUP, static_cast<WPARAM>(virtualKey), 1);
}

bool VisitPlayer::waitFor(bool reached, const std::string& what)
{
    if (reached)
        return true;
    if (host_.now() - stepStarted_ >= patienceMs)
        complaint_ = "waited a minute for " + what;
    return false;
}

bool VisitPlayer::demand(bool done, const std::string& complaint)
{
    if (!done)
        complaint_ = complaint;
    return done;
}

} // namespace kez::player
