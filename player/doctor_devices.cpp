// SPDX-License-Identifier: MIT
#include "doctor.h"

#include "camera_source.h"
#include "display.h"
#include "host_window.h"
#include "sound_output.h"

#include "platform/files.h"

namespace kez::player {

namespace {

class NobodyListens final : public WindowClient {
public:
    void pointerMoved(int, int) override { }

    void pointerPressed(int, int) override { }

    void keyPressed(int) override { }

    void needsDrawing() override { }

    void guideSpeaks(int, DWORD) override { }
};

Finding examineDisplay(const Options& options)
{
    if (options.headless)
        return { "display", true, "Not looked at: --headless needs none." };
    NobodyListens nobody;
    const HostWindow window(nobody, WindowShown::OnScreen);
    if (!window)
        return { "display", false,
            "No window can be shown. Start the program from a desktop; over a line to another "
            "computer, one that carries windows. With --headless --visit FILE it plays without." };
    const Display display(window.handle(), options.depth,
        options.fullScreen ? DisplayPlace::FullScreen : DisplayPlace::InWindow);
    if (!display || !display.problem().empty())
        return { "display", false, display.problem() + "." };
    return { "display", true,
        "A window of 640 x 480 opens, at " + std::to_string(options.depth) + " bits." };
}

Finding examineSound(const Options& options)
{
    if (options.headless)
        return { "sound", true, "Not looked at: --headless plays none." };
    NobodyListens nobody;
    const HostWindow window(nobody, WindowShown::Never);
    if (makeSoundOutput(window.handle()) != nullptr)
        return { "sound", true, "There is a sound output." };
    return { "sound", false,
        "There is no sound output, so the guide and the song are silent. Connect a loudspeaker or "
        "headphones and choose them in the computer's sound settings; --captions shows in writing "
        "what the guide says." };
}

// Those that the camera takes now; more may come into the folder later.
std::size_t photographsIn(const std::string& folder)
{
    std::size_t count = 0;
    for (const char* extension : { "jpg", "jpeg", "png" })
        count += files::list(folder, extension, files::Naming::TheSystems).size();
    return count;
}

Finding examineCamera(const Places& places)
{
    CameraSource camera;
    const std::string note = cameraNote(camera, places.content, places.camera);
    if (!note.empty())
        return { "camera", false, note };
    if (places.camera == "none")
        return { "camera", true, "None is connected, as --camera none asks." };
    const bool isDemo = places.camera == "demo";
    const std::string folder = isDemo ? demoDirectory(places.content)
                                      : places.camera.substr(std::string(folderPrefix).size());
    const std::size_t count = photographsIn(folder);
    if (count == 0)
        return { "camera", false,
            folder
                + " holds no photographs. Put JPEG or PNG files there; they come while the "
                  "program runs, too." };
    const std::string number = std::to_string(count);
    return { "camera", true,
        isDemo ? "The demonstration camera has " + number
                + " pictures; --camera folder:DIR takes your own photographs."
               : "It takes the photographs of " + folder + ": " + number
                + ". Should one not come, --verbose says why." };
}

} // namespace

std::vector<Finding> examineDevices(const Options& options, const Places& places)
{
    return { examineDisplay(options), examineSound(options), examineCamera(places) };
}

} // namespace kez::player
