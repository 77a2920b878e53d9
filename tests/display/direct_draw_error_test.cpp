// SPDX-License-Identifier: MIT
#include "display/screen.h"

#include "support/debug_output.h"

#include <gtest/gtest.h>

namespace kez {
namespace {

TEST(DirectDrawErrorText, knowsTheDocumentedCodes)
{
    EXPECT_EQ(directDrawErrorText(DD_OK), "Success");
    EXPECT_EQ(directDrawErrorText(DDERR_SURFACELOST),
        "Access to the surface is refused because the surface memory is gone. Call the "
        "IDirectDrawSurface::Restore method on this surface to restore the memory associated with "
        "it.");
    EXPECT_EQ(
        directDrawErrorText(DDERR_ALREADYINITIALIZED), "The object has already been initialized.");
    EXPECT_EQ(directDrawErrorText(DDERR_VIDEONOTACTIVE), "The video port is not active.");
    // The four that the platform's general codes stand for.
    for (HRESULT general : { DDERR_GENERIC, DDERR_INVALIDPARAMS, DDERR_OUTOFMEMORY,
             DDERR_UNSUPPORTED, DDERR_NOTINITIALIZED })
        EXPECT_EQ(directDrawErrorText(general).view().find("Unknown"), std::string_view::npos);
}

TEST(DirectDrawErrorText, showsTheLowHalfOfOtherCodes)
{
    EXPECT_EQ(directDrawErrorText(MAKE_DDHRESULT(7)), "Unknown error 7");
    EXPECT_EQ(directDrawErrorText(static_cast<HRESULT>(0x8876FFFF)), "Unknown error 65535");
}

TEST(AbortReport, namesTheOperationAndTheCause)
{
    test::DebugOutput output;
    SetLastError(0);
    abortReport(DDERR_NOTLOCKED, "Unlock");
    EXPECT_EQ(output.text(),
        "\nAbort Unlock:\nAn attempt is made to unlock a surface that was not locked.\n");
}

} // namespace
} // namespace kez
