// SPDX-License-Identifier: MIT
/// The camera's six picture places, its counter, and the rule by which no picture is lost.
///
/// The counter says where the next picture goes. A host fetches pictures by moving it: to 0 to
/// begin, to each place before that place's upload, and to 0 again at the end. While it does so
/// the counter is the host's, and a picture that is taken meanwhile waits in line. Between an
/// upload and the next move a host may read the counter, to look whether it is still where it was.
/// A host that has moved the counter and then reads it twice without an upload has finished; only
/// then
///
/// - what the host was told of and did not fetch is erased: that is how a host erases;
/// - what it was never told of, and what waits in line, goes to the counter's place and the next
///   ones, and counts. Every picture is thus reported once.
///
/// A host that hangs up in the middle finds what it did not fetch counted at its return.
#pragma once

#include "picture.h"

#include <array>
#include <deque>

namespace kez::driver {

class CameraMemory {
public:
    static constexpr int places = MVI_PICTURE_PLACES;

    /// How many pictures more it takes: six less those that wait to be fetched; none while the
    /// counter stands at 6 and no host moves it.
    [[nodiscard]] int room() const;

    [[nodiscard]] bool isFull() const { return room() == 0; }

    void take(RawPointer picture); ///< Only while it is not full.

    /// The same by the host's command: it goes to the counter's place even while the host moves the
    /// counter, since the host may want to fetch it there at once.
    void takeAtCounter(RawPointer picture);

    void moveCounter(int place); ///< 0 to 6, by the host.

    /// The counter as the host reads it. The first reading after a move only confirms the move.
    [[nodiscard]] int readCounter();

    [[nodiscard]] int counter() const { return counter_; }

    [[nodiscard]] RawPointer at(int place) const; ///< Null in a place that was never used.
    void markFetched(int place);

    void hangUp();

private:
    struct Place {
        RawPointer picture;
        bool waits = false; ///< Neither fetched nor erased.
        bool reported = false;
    };

    void putInPlace(RawPointer picture);
    void collect(int from, bool reportedToo);
    void settle();

    std::array<Place, places> places_;
    std::deque<RawPointer> line_;
    int counter_ = 0;
    bool hostMoves_ = false;
    bool confirmationDue_ = false;
    bool fetchedSinceMove_ = false;
};

} // namespace kez::driver
