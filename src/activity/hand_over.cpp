// SPDX-License-Identifier: MIT
#include "activity/hand_over.h"

#include "core/diagnostics.h"
#include "core/flags.h"
#include "platform/exported_data.h"

#include <cstddef>
#include <cstring>

namespace kez {

// Hosts declare these as static members of `Kez`, `image` and `imageName` as constants that they
// cannot change. To the module they are variables. They are defined here under the members' symbols
// but as the variables they are: no constant is ever written to, nor put into read-only memory.
extern const unsigned char* KEZ_EXPORTED_DATA(handedImage, "_ZN3Kez5imageE");
extern const char* KEZ_EXPORTED_DATA(handedName, "_ZN3Kez9imageNameE");
extern int KEZ_EXPORTED_DATA(handedWidth, "_ZN3Kez10imageWidthE");
extern int KEZ_EXPORTED_DATA(handedHeight, "_ZN3Kez11imageHeightE");

const unsigned char* handedImage = nullptr;
const char* handedName = nullptr;
int handedWidth = 0;
int handedHeight = 0;

namespace {

constexpr int widestPicture = 320;
constexpr int highestPicture = 240;
constexpr std::size_t longestName = 8;

unsigned char imageBuffer[widestPicture * highestPicture * 3];
char imageNameBuffer[longestName + 1];

bool fits(int width, int height)
{
    if (width >= 0 && height >= 0 && width <= widestPicture && height <= highestPicture)
        return true;
    debugPrint("A picture of %d x %d pixels is not handed over; %d x %d is the most.", width,
        height, widestPicture, highestPicture);
    return false;
}

bool fits(const char* name)
{
    if (std::memchr(name, '\0', longestName + 1) != nullptr)
        return true;
    debugPrint("The name \"%.40s\" is not handed over; it has more than %d characters.", name,
        static_cast<int>(longestName));
    return false;
}

} // namespace

void finishWithImage(const char* name, const unsigned char* pixels, int width, int height)
{
    const bool sized = fits(width, height);
    handedWidth = sized ? width : 0;
    handedHeight = sized ? height : 0;
    handedImage = nullptr;
    if (pixels != nullptr && sized) {
        const auto bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
        std::memmove(imageBuffer, pixels, bytes);
        handedImage = imageBuffer;
    }
    handedName = nullptr;
    if (name != nullptr && fits(name)) {
        std::memmove(imageNameBuffer, name, std::strlen(name) + 1);
        handedName = imageNameBuffer;
    }
    finishing = true;
}

void forgetHandedImage()
{
    handedImage = nullptr;
}

} // namespace kez
