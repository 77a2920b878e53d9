// SPDX-License-Identifier: MIT
#include "media/camera_driver.h"

#include "core/diagnostics.h"
#include "platform/library_life.h"

#include <windows.h>

#include <bit>
#include <string>

namespace kez {

namespace {

struct ResultText {
    std::uint32_t result;
    CameraResultText description;
};

constexpr ResultText resultTexts[] = {
    { CameraNotPresent, { "MVI_CAMERA_NOT_PRESENT", "" } },
    { CameraFull, { "MVI_CAMERA_FULL", "camera image memory is full" } },
    { CameraBadExposure,
        { "MVI_CAMERA_BAD_EXPOSURE", "image not grabbed becasue of bad exposure" } },
    { CameraBusy, { "MVI_CAMERA_BUSY", "The camera is busy, command not executed" } },
    { CameraNullPointer, { "MVI_NULL_POINTER", "" } },
    { CameraBufferTooSmall, { "MVI_BUFFER_TOO_SMALL", "" } },
    { CameraBadParameter, { "MVI_BAD_PARM", "" } },
    { CameraNotOpen, { "MVI_COMMS_NOT_OPEN", "" } },
    { CameraTimeout, { "MVI_COMMS_TIMEOUT", "no data received " } },
    { CameraNak, { "MVI_COMMS_NAK", "camera did not return ACK in response to command" } },
    { CameraBadPacket, { "MVI_COMMS_BAD_PACKET", "STX or ETX not found where expected" } },
    { CameraSendTimeout, { "MVI_COMMS_SEND_TIMEOUT", "A command did not get any response" } },
    { CameraSendNak, { "MVI_COMMS_SEND_NAK", "A command got a NAK" } },
    { CameraImageNull, { "MVI_IMAGE_NULL", "Image handle was null" } },
    { CameraImageCreateFail, { "MVI_IMAGE_CREATE_FAIL", "An image could not be created" } },
    { CameraImageColourFail,
        { "MVI_IMAGE_COLOUR_FAIL", "An error occured with the image colourization" } },
    { CameraImageEnlargeFail, { "MVI_IMAGE_ENLARGE_FAIL", "The image enlargement failed" } },
    { CameraImageBgrmvFail, { "MVI_IMAGE_BGRMV_FAIL", "" } },
    { CameraError, { "MVI_ERROR", "general/non-specifc error" } },
};

constexpr const char* libraryName = "qxdcdll";

template <typename... Arguments>
std::uint32_t answerNotPresent(Arguments...)
{
    return CameraNotPresent;
}

template <typename... Arguments>
bool take(HMODULE library, const char* name, std::uint32_t (*&function)(Arguments...))
{
    const auto address = GetProcAddress(library, name);
    if (address == nullptr) {
        char file[MAX_PATH] = {};
        GetModuleFileNameA(library, file, sizeof file);
        debugPrint("Camera driver: %s has no function %s; there is no camera. Put the driver that "
                   "came with the camera, or with this program, in its place.",
            file, name);
        return false;
    }
    function = std::bit_cast<std::uint32_t (*)(Arguments...)>(address);
    return true;
}

bool takeAll(HMODULE library, CameraDriver& driver)
{
    return take(library, "MviOpenCamera", driver.openCamera)
        && take(library, "MviCloseCamera", driver.closeCamera)
        && take(library, "MviGetDLLVersion", driver.getDriverVersion)
        && take(library, "MviGetFirmwareVersion", driver.getFirmwareVersion)
        && take(library, "MviGetImageIndex", driver.getImageIndex)
        && take(library, "MviResetImageCounter", driver.resetImageCounter)
        && take(library, "MviSyncCamera", driver.syncCamera)
        && take(library, "MviBeginUploadImage", driver.beginUpload)
        && take(library, "MviUploadImageLine", driver.uploadLine)
        && take(library, "MviUploadImageInfo", driver.uploadInfo)
        && take(library, "MviColourizeImage", driver.colourizeImage)
        && take(library, "MviEnlargeImage", driver.enlargeImage)
        && take(library, "MviGrabImage", driver.grabImage)
        && take(library, "MviGrabResult", driver.grabResult)
        && take(library, "MviSoundBuzzer", driver.soundBuzzer);
}

void reportMissing(DWORD error)
{
    const std::string file = platform::libraryFile(libraryName);
    if (error == ERROR_MOD_NOT_FOUND)
        reportLastError("Camera driver: %s, or a library that it needs, is not there; there is no "
                        "camera. Put it beside the program.",
            file.c_str());
    else
        reportLastError("Camera driver: %s cannot be used by this program, which needs one of %d "
                        "bits; there is no camera. Put one that fits in its place.",
            file.c_str(), static_cast<int>(8 * sizeof(void*)));
}

CameraDriver absentDriver()
{
    return {
        .openCamera = answerNotPresent,
        .closeCamera = answerNotPresent,
        .getDriverVersion = answerNotPresent,
        .getFirmwareVersion = answerNotPresent,
        .getImageIndex = answerNotPresent,
        .resetImageCounter = answerNotPresent,
        .syncCamera = answerNotPresent,
        .beginUpload = answerNotPresent,
        .uploadLine = answerNotPresent,
        .uploadInfo = answerNotPresent,
        .colourizeImage = answerNotPresent,
        .enlargeImage = answerNotPresent,
        .grabImage = answerNotPresent,
        .grabResult = answerNotPresent,
        .soundBuzzer = answerNotPresent,
    };
}

} // namespace

CameraResultText describeCameraResult(std::uint32_t result)
{
    for (const ResultText& entry : resultTexts)
        if (entry.result == result)
            return entry.description;
    return { "UNKNOWN", "" };
}

CameraDriver loadCameraDriver()
{
    const HMODULE library = LoadLibraryA(libraryName);
    if (library == nullptr) {
        reportMissing(GetLastError());
        return absentDriver();
    }
    CameraDriver driver;
    if (takeAll(library, driver)) {
        driver.library = library;
        return driver;
    }
    FreeLibrary(library);
    return absentDriver();
}

void unloadCameraDriver(CameraDriver& driver)
{
    if (driver.library != nullptr)
        FreeLibrary(static_cast<HMODULE>(driver.library));
    driver = {};
}

} // namespace kez
