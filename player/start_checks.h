// SPDX-License-Identifier: MIT
/// What has to be there before the first run, and what to tell a person when it is not.
#pragma once

#include <string>

namespace kez::player {

/// Why the activity's content cannot be used from this directory; empty when it can.
[[nodiscard]] std::string unusableContent(const std::string& content);

/// The directory that holds the guide's voice of a language: the content's own for English.
[[nodiscard]] std::string voiceDirectory(const std::string& content, const std::string& language);

/// The languages that the guide speaks, in the order of their codes: "de, en".
[[nodiscard]] std::string languagesOf(const std::string& content);

/// Makes the directory for the pictures; a line on what stands against keeping pictures there, or
/// nothing.
[[nodiscard]] std::string dataNote(const std::string& data);

/// Removes what crashes left half written in the store, unless it is so young that somebody may be
/// writing it now.
void removeUnfinished(const std::string& data);

/// The pictures of the camera screen's cells that are in the store.
[[nodiscard]] int countCameraPictures(const std::string& data);

} // namespace kez::player
