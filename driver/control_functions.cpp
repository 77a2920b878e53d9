// SPDX-License-Identifier: MIT
#include "qxdcdll.h"
#include "the_camera.h"

#include <mutex>
#include <string>
#include <string_view>

namespace kez::driver {

namespace {

constexpr int slowestPace = 100'000;
constexpr std::string_view folderPrefix = "folder:";

thread_local std::string lastProblem;

int report(bool succeeded, const char* problem)
{
    lastProblem = succeeded ? "" : problem;
    return succeeded ? 1 : 0;
}

/// The directory of the demo pictures; guarded, since any thread may set it.
struct DemoDirectory {
    std::mutex lock;
    std::string path = "data/demo";
};

DemoDirectory& demoDirectory()
{
    static DemoDirectory& only = *new DemoDirectory;
    return only;
}

std::string demoPath()
{
    const std::lock_guard guard(demoDirectory().lock);
    return demoDirectory().path;
}

std::shared_ptr<PictureSource> makeSource(std::string_view name, std::string& problem)
{
    if (name == "demo")
        return makeDemoSource(demoPath(), problem);
    if (name.starts_with(folderPrefix))
        return makeFolderSource(name.substr(folderPrefix.size()), problem);
    problem = "The camera's pictures come from demo, folder:DIR or none, not from "
        + std::string(name) + ".";
    return nullptr;
}

} // namespace

SerialCamera& theCamera()
{
    // Never destroyed: at the program's end the host closes it, and its worker may still talk to
    // it.
    static SerialCamera& only = *new SerialCamera;
    // A host that chooses no source finds a camera with the demo pictures, if there are any.
    static const bool hasDefault = [] {
        std::string ignored;
        only.useSource(makeDemoSource(demoPath(), ignored));
        return true;
    }();
    static_cast<void>(hasDefault);
    return only;
}

} // namespace kez::driver

using namespace kez::driver;

int qxdcSetSource(const char* source)
{
    if (source == nullptr)
        return report(false, "No source was named for the camera's pictures.");
    if (std::string_view(source) == "none") {
        theCamera().useSource(nullptr);
        return report(true, "");
    }
    std::string problem;
    std::shared_ptr<PictureSource> made = makeSource(source, problem);
    if (made == nullptr)
        return report(false, problem.c_str());
    theCamera().useSource(std::move(made));
    return report(true, "");
}

int qxdcSetDemoDirectory(const char* directory)
{
    if (directory == nullptr || *directory == '\0')
        return report(false, "No directory was named for the demo pictures.");
    const std::lock_guard guard(demoDirectory().lock);
    demoDirectory().path = directory;
    return report(true, "");
}

int qxdcTakePicture()
{
    if (!theCamera().hasSource())
        return report(false, "There is no camera.");
    return report(theCamera().pressButton(), "The camera is full; fetch its pictures first.");
}

int qxdcUnplug()
{
    theCamera().setPlugged(false);
    return report(true, "");
}

int qxdcPlug()
{
    theCamera().setPlugged(true);
    return report(true, "");
}

int qxdcSetPace(int perMille)
{
    if (perMille < 0 || perMille > slowestPace)
        return report(false, "The camera's pace is from 0 to 100000 thousandths.");
    theCamera().setPace(static_cast<unsigned>(perMille));
    return report(true, "");
}

int qxdcSetFault(const char* fault, int count)
{
    const bool known = fault != nullptr && theCamera().setFault(fault, count);
    return report(known, "The camera knows no fault of this name.");
}

const char* qxdcLastProblem()
{
    return lastProblem.c_str();
}
