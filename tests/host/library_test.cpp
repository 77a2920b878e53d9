// SPDX-License-Identifier: MIT
// The library as a file: what a host finds in it.
#include <gtest/gtest.h>

#include <dlfcn.h>

namespace {

class LibraryTest : public testing::Test {
protected:
    LibraryTest() { EXPECT_NE(library, nullptr) << dlerror(); }

    // Stays loaded: what the library never destroys would look like leaks without it.
    static inline void* const library = dlopen(KEZ_LIBRARY, RTLD_NOW | RTLD_LOCAL);
};

TEST_F(LibraryTest, exportsEveryMemberAndNothingElse)
{
    for (const char* symbol : { "_ZN3Kez10initializeEP6HWND__"
                                "P12IDirectSoundP11IDirectDrawP18IDirectDrawSurfaceS7_iPKcjjjj",
             "_ZN3Kez16initializeCameraEv", "_ZN3Kez4openEv", "_ZN3Kez3runENS_6ModuleEibb",
             "_ZN3Kez7processEv", "_ZN3Kez5closeEv", "_ZN3Kez7releaseEv", "_ZN3Kez4RGBAEiiii",
             "_ZN3Kez4exitE", "_ZN3Kez5imageE", "_ZN3Kez9imageNameE", "_ZN3Kez10imageWidthE",
             "_ZN3Kez11imageHeightE", "_ZN3Kez4diskE" })
        EXPECT_NE(dlsym(library, symbol), nullptr) << symbol;
    for (const char* symbol :
        { "_ZN3kez15finishWithImageEPKcPKhii", "_ZN3kez6screenEv", "_ZN3kez7archiveEv" })
        EXPECT_EQ(dlsym(library, symbol), nullptr) << symbol;
}

TEST_F(LibraryTest, answersCallsOutOfOrder)
{
    auto* process = reinterpret_cast<bool (*)()>(dlsym(library, "_ZN3Kez7processEv"));
    auto* release = reinterpret_cast<void (*)()>(dlsym(library, "_ZN3Kez7releaseEv"));
    ASSERT_TRUE(process != nullptr && release != nullptr);
    EXPECT_FALSE(process());
    release();
    EXPECT_FALSE(process());
}

} // namespace
