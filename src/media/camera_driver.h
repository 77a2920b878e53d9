// SPDX-License-Identifier: MIT
/// The camera's driver library as a table of its functions. Every function returns a result code:
/// 0, or one of `CameraResult`. The functions block on the serial line and are called from one
/// thread at a time.
#pragma once

#include <cstdint>

struct MVIGRABINFO; ///< The driver's own record of an upload; nobody here reads it.

namespace kez {

enum CameraResult : std::uint32_t {
    CameraOk = 0,
    CameraNotPresent = 0xFFFF0000,
    CameraFull = 0xFFFF0001,
    CameraBadExposure = 0xFFFF0002,
    CameraBusy = 0xFFFF0004,
    CameraNullPointer = 0xFFFF0010,
    CameraBufferTooSmall = 0xFFFF0011,
    CameraBadParameter = 0xFFFF0012,
    CameraNotOpen = 0xFFFF0021,
    CameraTimeout = 0xFFFF0022,
    CameraNak = 0xFFFF0023,
    CameraBadPacket = 0xFFFF0024,
    CameraSendTimeout = 0xFFFF0025,
    CameraSendNak = 0xFFFF0026,
    CameraImageNull = 0xFFFF0030,
    CameraImageCreateFail = 0xFFFF0031,
    CameraImageColourFail = 0xFFFF0032,
    CameraImageEnlargeFail = 0xFFFF0033,
    CameraImageBgrmvFail = 0xFFFF0034,
    CameraError = 0xFFFFFFFF,
};

/// The name of a result in the driver's documents ("UNKNOWN" for any other code, 0 included) and
/// the text that explains it, which may be empty.
struct CameraResultText {
    const char* name;
    const char* text;
};

[[nodiscard]] CameraResultText describeCameraResult(std::uint32_t result);

struct CameraDriver {
    std::uint32_t (*openCamera)(const char* port) = nullptr; ///< "COM1" to "COM4".
    std::uint32_t (*closeCamera)() = nullptr;
    std::uint32_t (*getDriverVersion)(char* sixteenBytes) = nullptr;
    std::uint32_t (*getFirmwareVersion)(char* sixteenBytes) = nullptr;
    std::uint32_t (*getImageIndex)(unsigned char* index) = nullptr; ///< The picture counter.
    std::uint32_t (*resetImageCounter)(int index) = nullptr;
    std::uint32_t (*syncCamera)() = nullptr;
    std::uint32_t (*beginUpload)(int* lineCount, int* lineBytes) = nullptr; ///< At the counter.
    std::uint32_t (*uploadLine)(unsigned char* line, int lineBytes) = nullptr;
    std::uint32_t (*uploadInfo)(MVIGRABINFO* info) = nullptr; ///< 24 bytes; ends the upload.
    std::uint32_t (*colourizeImage)(unsigned char* raw, unsigned char* picture) = nullptr;
    std::uint32_t (*enlargeImage)(unsigned char* picture, unsigned char* destination) = nullptr;
    std::uint32_t (*grabImage)(int first, int second) = nullptr;
    std::uint32_t (*grabResult)() = nullptr;
    std::uint32_t (*soundBuzzer)(int first, int second) = nullptr;
    void* library = nullptr; ///< Whose functions these are, held loaded; null: nobody's.
};

/// The functions of the library "qxdcdll". Without the library, or with one that lacks a function,
/// a diagnostic and a driver whose every function answers `CameraNotPresent`.
[[nodiscard]] CameraDriver loadCameraDriver();

/// Lets the library go and forgets the functions.
void unloadCameraDriver(CameraDriver& driver);

} // namespace kez
