// SPDX-License-Identifier: MIT
#include "camera_memory.h"

#include <algorithm>
#include <utility>

namespace kez::driver {

int CameraMemory::room() const
{
    if (!hostMoves_ && counter_ == places)
        return 0;
    const auto waiting = std::ranges::count_if(places_, &Place::waits);
    return places - static_cast<int>(waiting) - static_cast<int>(line_.size());
}

void CameraMemory::take(RawPointer picture)
{
    if (hostMoves_)
        line_.push_back(std::move(picture));
    else
        putInPlace(std::move(picture));
}

void CameraMemory::takeAtCounter(RawPointer picture)
{
    if (counter_ == places)
        line_.push_back(std::move(picture));
    else
        putInPlace(std::move(picture));
}

void CameraMemory::putInPlace(RawPointer picture)
{
    Place& place = places_[static_cast<std::size_t>(counter_++)];
    if (place.waits && !place.reported)
        line_.push_front(std::move(place.picture)); // nobody knows of it yet
    place = { std::move(picture), true, false };
}

void CameraMemory::moveCounter(int place)
{
    counter_ = place;
    hostMoves_ = true;
    confirmationDue_ = true;
    fetchedSinceMove_ = false;
}

int CameraMemory::readCounter()
{
    if (std::exchange(confirmationDue_, false))
        return counter_;
    if (hostMoves_ && !fetchedSinceMove_)
        settle();
    for (int i = 0; i < counter_; ++i)
        places_[static_cast<std::size_t>(i)].reported = true;
    return counter_;
}

RawPointer CameraMemory::at(int place) const
{
    return places_[static_cast<std::size_t>(place)].picture;
}

void CameraMemory::markFetched(int place)
{
    places_[static_cast<std::size_t>(place)].waits = false;
    fetchedSinceMove_ = true;
}

// Takes the waiting pictures from a place on out of their places and puts them at the line's front,
// in their order; those the host was told of only on request. The places keep what lies in them.
void CameraMemory::collect(int from, bool reportedToo)
{
    for (int i = places - 1; i >= from; --i) {
        Place& place = places_[static_cast<std::size_t>(i)];
        if (place.waits && (reportedToo || !place.reported))
            line_.push_front(place.picture);
        place.waits = false;
    }
}

void CameraMemory::settle()
{
    hostMoves_ = false;
    collect(counter_, false);
    while (!line_.empty() && counter_ < places) {
        putInPlace(std::move(line_.front()));
        line_.pop_front();
    }
}

void CameraMemory::hangUp()
{
    confirmationDue_ = false;
    collect(0, true);
    counter_ = 0;
    settle();
}

} // namespace kez::driver
