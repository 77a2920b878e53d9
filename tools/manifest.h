// SPDX-License-Identifier: MIT
/// The plain text that says what goes into an archive, one record a line:
///
///     # the backdrop keeps its pixels, because thumbnails are painted into it
///     sprite camBack file=back.png depth=1000 form=raw32 keep
///     sprite cursor depth=10
///     record chime.wv5 file=chime.wv5
///
/// `sprite NAME` is stored as NAME.sp5. Its keys: file (default NAME.png), depth (100), x and y of
/// the centre, form (auto; see sprite_forms.h), colours (at most so many, 2 to 256, chosen to fit;
/// by default all stay), keep (the picture is not cropped). `record NAME` is a finished record,
/// taken as it is; its key: file (default NAME). A word with spaces stands in double quotes. What
/// follows a # that begins a word is a comment.
#pragma once

#include "sprite_forms.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kez::tools {

struct ManifestItem {
    enum class Kind { Sprite, Record };

    Kind kind = Kind::Sprite;
    int line = 0;
    std::string name; ///< A sprite's without ".sp5".
    std::string file; ///< Relative to the manifest's folder.
    int depth = 100;
    std::optional<int> x {}; ///< Empty: from the picture's place.
    std::optional<int> y {};
    const SpriteForm* form = nullptr;
    int colours = 0; ///< 0: all stay.
    bool keep = false;
};

constexpr std::size_t longestRecordName = 39;

/// Throws UserError, naming `path` and the line, for anything that is not as above, names that are
/// too long and names that appear twice.
std::vector<ManifestItem> parseManifest(const std::string& path, std::string_view text);

/// Whether a manifest can hold the name: it has no quotes, no '=' and no control characters.
[[nodiscard]] bool isManifestName(std::string_view name);

/// The item's line, without a line break. Only what differs from the defaults is written.
std::string formatManifestItem(const ManifestItem& item);

} // namespace kez::tools
