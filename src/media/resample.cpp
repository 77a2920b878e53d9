// SPDX-License-Identifier: MIT
#include "media/resample.h"

#include "media/enlarge.h"
#include "media/reduce.h"

#include <cstddef>
#include <new>

namespace kez {

void resamplePicture(
    const std::uint8_t* source, int sw, int sh, std::uint8_t** destination, int dw, int dh)
{
    if (source == nullptr || destination == nullptr || sw < 1 || sh < 1 || dw < 1 || dh < 1)
        return;
    if (*destination == nullptr)
        *destination = new (std::nothrow)
            std::uint8_t[static_cast<std::size_t>(dw) * static_cast<std::size_t>(dh) * 3];
    if (*destination == nullptr)
        return;
    if (dw <= sw && dh <= sh)
        reducePicture(source, sw, sh, *destination, dw, dh);
    else
        enlargePicture(source, sw, sh, *destination, dw, dh);
}

} // namespace kez
