// SPDX-License-Identifier: MIT
/// The steps of a scripted visit, read from a text file: a step a line, `#` starts a comment.
///
///     wait MS              let the clock run on
///     move X Y             the pointer goes there (window pixels, 0 0 top left)
///     click X Y            the pointer goes there, the left button is pressed and released
///     key NAME             enter, escape, backspace, delete, tab, space, up, down, left, right,
///                          home, end, f1 to f12, or a letter or digit
///     type TEXT            the characters of the rest of the line, one after another
///     take                 the camera takes a picture
///     unplug, plug         the camera's cable
///     shot FILE.png        keep what the screen shows
///     until pictures N     wait until N pictures have come from the camera, at most a minute
///     until exit           wait until the activity has ended, at most a minute
///     quit                 close the window
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kez::player {

enum class StepKind {
    Wait,
    Move,
    Click,
    Key,
    Type,
    Take,
    Unplug,
    Plug,
    Shot,
    UntilPictures,
    UntilExit,
    Quit
};

struct Step {
    StepKind kind = StepKind::Quit;
    int line = 0; ///< In the file, counted from 1.
    int x = 0; ///< Of Move and Click.
    int y = 0;
    int number = 0; ///< Milliseconds of Wait, pictures of UntilPictures, virtual-key code of Key.
    std::string text {}; ///< Of Type; the file of Shot.
};

struct VisitFault {
    int line = 0;
    std::string message;
};

/// All steps of a script, or the first line that is none and why.
[[nodiscard]] std::variant<std::vector<Step>, VisitFault> parseVisit(std::string_view text);

} // namespace kez::player
