// SPDX-License-Identifier: MIT
#include "enlarge.h"
#include "qxdcdll.h"
#include "raw_form.h"
#include "the_camera.h"

#include <cstring>

using kez::driver::theCamera;

namespace {

constexpr char driverVersion[MVI_VERSION_BYTES] = "kez driver 1.0";

} // namespace

uint32_t MviOpenCamera(const char* port)
{
    return theCamera().open(port);
}

uint32_t MviCloseCamera()
{
    return theCamera().close();
}

uint32_t MviGetDLLVersion(char* version)
{
    if (version == nullptr)
        return MVI_NULL_POINTER;
    std::memcpy(version, driverVersion, sizeof driverVersion);
    return MVI_OK;
}

uint32_t MviGetFirmwareVersion(char* version)
{
    return theCamera().firmwareVersion(version);
}

uint32_t MviGetImageIndex(unsigned char* index)
{
    return theCamera().imageIndex(index);
}

uint32_t MviResetImageCounter(int index)
{
    return theCamera().resetCounter(index);
}

uint32_t MviSyncCamera()
{
    return theCamera().sync();
}

uint32_t MviBeginUploadImage(int* lineCount, int* lineBytes)
{
    return theCamera().beginUpload(lineCount, lineBytes);
}

uint32_t MviUploadImageLine(unsigned char* line, int lineBytes)
{
    return theCamera().uploadLine(line, lineBytes);
}

uint32_t MviUploadImageInfo(MVIGRABINFO* info)
{
    return theCamera().uploadInfo(info);
}

uint32_t MviColourizeImage(unsigned char* raw, unsigned char* picture)
{
    if (raw == nullptr || picture == nullptr)
        return MVI_NULL_POINTER;
    const bool developed
        = kez::driver::colourize(std::span<const unsigned char, MVI_RAW_BYTES>(raw, MVI_RAW_BYTES),
            std::span<unsigned char, MVI_PICTURE_BYTES>(picture, MVI_PICTURE_BYTES));
    return developed ? MVI_OK : MVI_IMAGE_COLOUR_FAIL;
}

uint32_t MviEnlargeImage(unsigned char* picture, unsigned char* destination)
{
    if (picture == nullptr || destination == nullptr)
        return MVI_NULL_POINTER;
    kez::driver::enlarge(
        std::span<const unsigned char, MVI_PICTURE_BYTES>(picture, MVI_PICTURE_BYTES),
        std::span<unsigned char, MVI_ENLARGED_BYTES>(destination, MVI_ENLARGED_BYTES));
    return MVI_OK;
}

uint32_t MviGrabImage(int, int)
{
    return theCamera().grab();
}

uint32_t MviGrabResult()
{
    return theCamera().grabResult();
}

uint32_t MviSoundBuzzer(int, int)
{
    return theCamera().buzz();
}
