// SPDX-License-Identifier: MIT
/// The camera driver as the player sees it: the same library that the module loads by name, told
/// where its pictures come from.
#pragma once

#include <windows.h>

#include <string>

namespace kez::player {

/// Loads the driver and keeps it loaded. Without the driver every function answers false, and the
/// module's camera does not answer either.
class CameraSource {
public:
    CameraSource();
    ~CameraSource();
    CameraSource(const CameraSource&) = delete;
    CameraSource& operator=(const CameraSource&) = delete;

    explicit operator bool() const { return library_ != nullptr; }

    /// Where "demo" finds its pictures; before `choose`.
    bool setDemoDirectory(const std::string& directory);

    /// "demo", "none" or "folder:DIR".
    bool choose(const std::string& source);

    bool takePicture(); ///< As a press of the camera's button.
    bool setPlugged(bool plugged); ///< The cable.

    /// Why the last of these functions answered false, in a sentence.
    [[nodiscard]] std::string problem() const;

private:
    template <class Function>
    [[nodiscard]] Function* find(const char* name) const;

    HMODULE library_;
};

/// Where the content has the demonstration camera's pictures.
[[nodiscard]] std::string demoDirectory(const std::string& content);

/// Chooses the source; a line on why no picture will come, or nothing.
[[nodiscard]] std::string cameraNote(
    CameraSource& camera, const std::string& content, const std::string& source);

} // namespace kez::player
