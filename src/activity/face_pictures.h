// SPDX-License-Identifier: MIT
/// The small pictures that move the guide's face where a larger picture has the guide drawn on it,
/// its bearer. They are named after the bearer and lie over it; content may have all of them, a few
/// or none, and what it lacks stays as the bearer shows it.
#pragma once

#include "activity/face_motion.h"
#include "sprites/image.h"

#include <array>
#include <optional>

namespace kez {

class FacePictures {
public:
    explicit FacePictures(const Image& bearer); ///< Which outlives them.

    struct Expression {
        Mouth mouth = Mouth::Shut;
        bool eyesShut = false;
        std::optional<StagePoint> lookingAt {}; ///< Empty: straight ahead.
    };

    void load(); ///< Borrows what the archive has.
    void unload();
    void draw(const Expression& expression); ///< Over the bearer, into the open canvas.

    [[nodiscard]] const Image& bearer() const { return bearer_; }

    [[nodiscard]] bool empty() const { return loaded_ == 0; } ///< As long as nothing is loaded.

    /// Mouth ajar and open; eyes shut; the face without eyes, and the eyes alone, which wander.
    enum Part { Ajar, Open, Blink, NoEyes, Eyes };

    [[nodiscard]] const std::array<Image, 5>& parts() const { return parts_; }

private:
    void drawEyes(const Expression& expression);

    const Image& bearer_;
    std::array<Image, 5> parts_; ///< By `Part`.
    int loaded_ = 0;
};

} // namespace kez
