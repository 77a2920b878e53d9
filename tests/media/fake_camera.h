// SPDX-License-Identifier: MIT
/// A camera made in the test, with a driver in front of it: six places and a counter that says
/// where the next picture goes. A picture is a number from 1 on; uploaded, every byte of it has
/// that value. Calls are counted, and each may be made to fail. It does not keep apart what is
/// taken while the host moves the counter, as a real one does.
#pragma once

#include "media/camera.h"

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kez::test {

struct FakeCamera {
    std::array<int, 6> places {};
    int counter = 0;
    int taken = 0; ///< Pictures taken so far, the number of the latest.
    bool plugged = true;
    bool portsOpen = true; ///< A port opens although no camera is on it.
    int busyCalls = 0; ///< The next calls that find the camera busy.
    int lineCount = 4;
    int lineBytes = 100;
    unsigned lineMs = 0; ///< How long a line takes.
    std::uint32_t grabAnswer = CameraOk;
    int calls = 0; ///< All driver calls so far.
    std::map<int, std::uint32_t> failures; ///< By number of the call, from 1 on.
    std::function<void(int call)> afterCall;
    std::vector<int> resets; ///< Targets of successful counter resets.
    std::vector<std::string> opened; ///< Ports tried.

    void take(int pictures = 1);
    std::uint32_t answer(bool asksCamera);
};

/// The one fake camera and the driver that talks to it. Touch it only while the link is idle.
FakeCamera& fakeCamera();
CameraDriver fakeDriver();

} // namespace kez::test
