// SPDX-License-Identifier: MIT
/// The directories and files of one start: whole paths, which hold wherever the program goes.
#pragma once

#include "options.h"

#include <string>

namespace kez::player {

struct Places {
    std::string data; ///< Where the pictures live.
    std::string content; ///< Holds `data` and `audio`; the module runs there.
    std::string pictures; ///< Where exports are copied to; empty: nowhere.
    std::string handedBack; ///< A PNG file, or empty.
    std::string log; ///< A text file, or empty.
    std::string shots; ///< Where a visit's screenshots go.
    std::string camera; ///< The camera's source; its folder is a whole path, too.
};

/// What holds when nothing is asked for: the person's own directories, and the content from beside
/// the program or, for an installed program, from where it was installed to.
[[nodiscard]] Options usualOptions();

/// Where everything is for a start with these options from the current directory. A start that
/// nobody watches copies no exports unless it is told where to.
[[nodiscard]] Places placesFor(const Options& options);

} // namespace kez::player
