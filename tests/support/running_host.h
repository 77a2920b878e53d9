// SPDX-License-Identifier: MIT
/// A whole host: a window, a display, and a folder of its own with neither archive nor pictures, in
/// which the module runs.
#pragma once

#include "support/display.h"
#include "support/engine_fixture.h"
#include "support/host_window.h"

#include <filesystem>

namespace kez::test {

class RunningHost : public EngineFixture {
protected:
    RunningHost()
        : former_(std::filesystem::current_path())
        , folder_(std::filesystem::path(testing::TempDir())
              / testing::UnitTest::GetInstance()->current_test_info()->name())
    {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        std::filesystem::current_path(folder_);
    }

    ~RunningHost() override
    {
        Kez::close();
        screen().detach();
        std::filesystem::current_path(former_);
        std::filesystem::remove_all(folder_);
    }

    void initialize() { initialize(display.primary, display.secondary, 32); }

    void initialize(IDirectDrawSurface* primary, IDirectDrawSurface* secondary, int bits)
    {
        Kez::initialize(window.handle(), nullptr, display.directDraw, primary, secondary, bits,
            "pictures", 1, 2, 3, 4);
    }

    void start()
    {
        initialize();
        Kez::open();
        Kez::run(Kez::camera, 1 << 20, false, false);
    }

    HostWindow window;
    Display display { 32 };

private:
    std::filesystem::path former_;
    std::filesystem::path folder_;
};

} // namespace kez::test
