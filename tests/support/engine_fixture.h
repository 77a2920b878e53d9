// SPDX-License-Identifier: MIT
/// The module as a host finds it when it is loaded, for every test anew: flags and clock at their
/// first values, nothing attached, on a clock that moves only by sleeping.
#pragma once

#include "control_kernel.h"
#include "core/clock.h"
#include "core/flags.h"
#include "display/cursor.h"
#include "display/scene.h"
#include "display/screen.h"
#include "host/kez.h"
#include "media/resource_archive.h"
#include "support/debug_output.h"

#include <gtest/gtest.h>

namespace kez::test {

/// What a host sees: the two are constants to the compiler, but the module changes them.
inline const unsigned char* handedImage()
{
    return *const_cast<const unsigned char* const volatile*>(&Kez::image);
}

inline const char* handedName()
{
    return *const_cast<const char* const volatile*>(&Kez::imageName);
}

class EngineFixture : public testing::Test {
protected:
    EngineFixture()
    {
        reset();
        winapi::useScriptClock(1000);
    }

    ~EngineFixture() override
    {
        reset();
        winapi::useRealClock();
    }

    DebugOutput output;

private:
    static void reset()
    {
        quitting = shuttingDown = false;
        Kez::close();
        endScene();
        screen().detach();
        destroyArchive();
        opened = running = finishing = freshRun = guideIntro = introduced = suspended = false;
        diskBudget = diskUsed = 0;
        frameTime = framesPerSecond = 0;
        cursorObject = nullptr;
        Kez::exit = false;
    }
};

} // namespace kez::test
