// SPDX-License-Identifier: MIT
// A camera driver for tests: one picture waits, and comes over at a snail's pace. With LACKING
// defined the library has but the first two functions.
#include "driver/qxdcdll.h"

#include <windows.h>

#include <atomic>
#include <cstring>

namespace {

constexpr DWORD lineMs = 8;
constexpr int lineCount = 124;
constexpr int lineBytes = 164;

[[maybe_unused]] std::atomic<int> counter { 1 };
[[maybe_unused]] std::atomic<int> linesSent { 0 };

} // namespace

uint32_t MviOpenCamera(const char*)
{
    return 0;
}

uint32_t MviCloseCamera()
{
    return 0;
}

#ifndef LACKING

/// For the test: how far the upload is.
extern "C" QXDC_API int slowDriverLines()
{
    return linesSent;
}

uint32_t MviGetDLLVersion(char* version)
{
    std::strcpy(version, "slow");
    return 0;
}

uint32_t MviGetFirmwareVersion(char* version)
{
    return MviGetDLLVersion(version);
}

uint32_t MviGetImageIndex(unsigned char* index)
{
    *index = static_cast<unsigned char>(counter.load());
    return 0;
}

uint32_t MviResetImageCounter(int index)
{
    counter = index;
    return 0;
}

uint32_t MviSyncCamera()
{
    return 0;
}

uint32_t MviBeginUploadImage(int* lines, int* bytes)
{
    *lines = lineCount;
    *bytes = lineBytes;
    return 0;
}

uint32_t MviUploadImageLine(unsigned char* line, int bytes)
{
    Sleep(lineMs);
    ++linesSent;
    std::memset(line, 0x55, static_cast<std::size_t>(bytes));
    return 0;
}

uint32_t MviUploadImageInfo(MVIGRABINFO*)
{
    return 0;
}

uint32_t MviColourizeImage(unsigned char*, unsigned char*)
{
    return 0;
}

uint32_t MviEnlargeImage(unsigned char*, unsigned char*)
{
    return 0;
}

uint32_t MviGrabImage(int, int)
{
    return 0;
}

uint32_t MviGrabResult()
{
    return 0;
}

uint32_t MviSoundBuzzer(int, int)
{
    return 0;
}

#endif
