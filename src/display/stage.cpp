// SPDX-License-Identifier: MIT
#include "display/stage.h"

#include "core/clock.h"
#include "core/diagnostics.h"
#include "core/flags.h"
#include "core/task.h"
#include "display/scene.h"
#include "display/view.h"

namespace kez {

namespace {

Stage* instance = nullptr;

class ModuleStage final : public Stage { };

} // namespace

Stage::Stage()
{
    if (instance != nullptr) {
        debugPrint("Assertion failed: !_instance (Stage). The first stage stays.");
        return;
    }
    instance = this;
}

Stage::~Stage()
{
    if (instance == this)
        instance = nullptr;
}

void Stage::onStart() { }

void Stage::onReleased() { }

void Stage::onStarted() { }

void Stage::onReleasing() { }

void Stage::frame()
{
    if (suspended)
        return;
    takeFrameTime();
    performSwitch();
    runDueTasks();
    drawDisplayList();
}

void Stage::hook5() { }

void Stage::onInput() { }

Stage& stage()
{
    // Never destroyed: what is destroyed at unload may still ask for it.
    if (instance == nullptr)
        new ModuleStage;
    return *instance;
}

} // namespace kez
