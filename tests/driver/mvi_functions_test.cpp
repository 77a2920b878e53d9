// SPDX-License-Identifier: MIT
// The library as a host sees it: loaded by its name, every function found by its own.
#include "picture_files.h"
#include "platform/temporary_folder.h"
#include "qxdcdll.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

namespace kez::driver {
namespace {

class MviFunctions : public testing::Test {
protected:
    MviFunctions()
        : library(LoadLibraryA("qxdcdll"))
    {
    }

    ~MviFunctions() override { FreeLibrary(library); }

    template <class Function>
    Function* find(const char* name) const
    {
        const FARPROC address = GetProcAddress(library, name);
        EXPECT_NE(address, nullptr) << name;
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
    }

    HMODULE library;
};

#define FIND(name) find<decltype(name)>(#name)

TEST_F(MviFunctions, aPictureGoesFromAFolderToTheHost)
{
    ASSERT_NE(library, nullptr);
    const kez::test::TemporaryFolder folder;
    folder.put("a.jpg", test::jpegFile(test::Photograph(400, 300, [](int, int y) {
        return y < 150 ? test::Colour { 200, 40, 20 } : test::Colour { 10, 90, 220 };
    })));
    ASSERT_EQ(FIND(qxdcSetPace)(0), 1);
    ASSERT_EQ(FIND(qxdcSetSource)(("folder:" + folder.path()).c_str()), 1);
    ASSERT_EQ(FIND(MviOpenCamera)("COM1"), MVI_OK);
    char version[MVI_VERSION_BYTES] = "";
    EXPECT_EQ(FIND(MviGetDLLVersion)(version), MVI_OK);
    EXPECT_EQ(FIND(MviGetFirmwareVersion)(version), MVI_OK);
    EXPECT_STREQ(version, "kez camera 1.0");
    EXPECT_EQ(FIND(MviSyncCamera)(), MVI_OK);
    unsigned char index = 0;
    EXPECT_EQ(FIND(MviGetImageIndex)(&index), MVI_OK);
    EXPECT_EQ(index, 1);
    EXPECT_EQ(FIND(MviResetImageCounter)(0), MVI_OK);
    int lines = 0;
    int bytes = 0;
    EXPECT_EQ(FIND(MviBeginUploadImage)(&lines, &bytes), MVI_OK);
    std::vector<unsigned char> raw(MVI_RAW_BYTES);
    for (int i = 0; i < lines; ++i)
        EXPECT_EQ(FIND(MviUploadImageLine)(raw.data() + i * bytes, bytes), MVI_OK);
    MVIGRABINFO info;
    EXPECT_EQ(FIND(MviUploadImageInfo)(&info), MVI_OK);
    std::vector<unsigned char> picture(MVI_PICTURE_BYTES);
    EXPECT_EQ(FIND(MviColourizeImage)(raw.data(), picture.data()), MVI_OK);
    // Blue, green, red; the bottom row first.
    const unsigned char* const top = picture.data() + MVI_PICTURE_BYTES - 3;
    EXPECT_NEAR(picture[0], 220, 3);
    EXPECT_NEAR(picture[2], 10, 3);
    EXPECT_NEAR(top[0], 20, 3);
    EXPECT_NEAR(top[2], 200, 3);
    std::vector<unsigned char> enlarged(MVI_ENLARGED_BYTES);
    EXPECT_EQ(FIND(MviEnlargeImage)(picture.data(), enlarged.data()), MVI_OK);
    EXPECT_EQ(enlarged[0], picture[0]);
    EXPECT_EQ(FIND(MviColourizeImage)(nullptr, picture.data()), MVI_NULL_POINTER);
    EXPECT_EQ(FIND(MviEnlargeImage)(picture.data(), nullptr), MVI_NULL_POINTER);
    EXPECT_EQ(FIND(MviGrabImage)(1, 2), MVI_OK);
    EXPECT_EQ(FIND(MviGrabResult)(), MVI_OK);
    EXPECT_EQ(FIND(MviSoundBuzzer)(1, 2), MVI_OK);
    EXPECT_EQ(FIND(MviCloseCamera)(), MVI_OK);
}

TEST_F(MviFunctions, problemsAreToldInASentence)
{
    ASSERT_NE(library, nullptr);
    const auto setSource = FIND(qxdcSetSource);
    const auto problem = FIND(qxdcLastProblem);
    ASSERT_EQ(setSource("none"), 1);
    EXPECT_STREQ(problem(), "");
    EXPECT_EQ(FIND(qxdcTakePicture)(), 0);
    EXPECT_STREQ(problem(), "There is no camera.");
    EXPECT_EQ(setSource("folder:/nowhere"), 0);
    EXPECT_STREQ(problem(), "There is no folder /nowhere to take pictures from.");
    EXPECT_EQ(setSource("webcam"), 0);
    EXPECT_NE(std::string(problem()).find("webcam"), std::string::npos);
    EXPECT_EQ(setSource(nullptr), 0);
    EXPECT_EQ(FIND(qxdcSetDemoDirectory)("/nowhere"), 1);
    EXPECT_EQ(setSource("demo"), 0);
    EXPECT_NE(std::string(problem()).find("/nowhere"), std::string::npos);
    EXPECT_EQ(FIND(qxdcSetFault)("melting", 1), 0);
    EXPECT_EQ(FIND(qxdcSetPace)(-1), 0);
    EXPECT_EQ(FIND(MviOpenCamera)("COM1"), MVI_CAMERA_NOT_PRESENT);
    EXPECT_EQ(FIND(qxdcUnplug)(), 1);
    EXPECT_EQ(FIND(qxdcPlug)(), 1);
}

} // namespace
} // namespace kez::driver
