// SPDX-License-Identifier: MIT
#include "camera_source.h"

#include "driver/qxdcdll.h"

namespace kez::player {

CameraSource::CameraSource()
    : library_(LoadLibraryA("qxdcdll"))
{
}

CameraSource::~CameraSource()
{
    if (library_ != nullptr)
        FreeLibrary(library_);
}

// Null without the driver, and in a driver that lacks the function.
template <class Function>
Function* CameraSource::find(const char* name) const
{
    if (library_ == nullptr)
        return nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
}

bool CameraSource::setDemoDirectory(const std::string& directory)
{
    auto* set = find<decltype(qxdcSetDemoDirectory)>("qxdcSetDemoDirectory");
    return set != nullptr && set(directory.c_str()) != 0;
}

bool CameraSource::choose(const std::string& source)
{
    auto* set = find<decltype(qxdcSetSource)>("qxdcSetSource");
    return set != nullptr && set(source.c_str()) != 0;
}

bool CameraSource::takePicture()
{
    auto* take = find<decltype(qxdcTakePicture)>("qxdcTakePicture");
    return take != nullptr && take() != 0;
}

bool CameraSource::setPlugged(bool plugged)
{
    auto* set = find<decltype(qxdcPlug)>(plugged ? "qxdcPlug" : "qxdcUnplug");
    return set != nullptr && set() != 0;
}

std::string CameraSource::problem() const
{
    auto* problem = find<decltype(qxdcLastProblem)>("qxdcLastProblem");
    return problem != nullptr ? problem() : "there is no camera driver";
}

std::string demoDirectory(const std::string& content)
{
    return content + "/data/demo";
}

std::string cameraNote(CameraSource& camera, const std::string& content, const std::string& source)
{
    if (!camera)
        return "The camera driver qxdcdll is not beside the program, so no camera will answer. "
               "Install the program again.\n";
    // By its whole path: the voices of a language have a directory of their own.
    camera.setDemoDirectory(demoDirectory(content));
    return camera.choose(source) ? std::string()
                                 : "The camera has no pictures: " + camera.problem() + "\n";
}

} // namespace kez::player
