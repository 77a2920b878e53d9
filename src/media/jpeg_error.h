// SPDX-License-Identifier: MIT
/// libjpeg's errors, turned into a return to where the library was entered. What the library was
/// doing ends in the middle, so nothing with a destructor may live between there and the call that
/// failed.
#pragma once

#include <csetjmp>
#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

namespace kez {

struct JpegErrors {
    /// Makes `info` report here. `client_data` becomes this object's address.
    void attachTo(j_common_ptr info);

    /// Keeps the text and goes back to `escape`, which must be set.
    [[noreturn]] void giveUp(const char* problem);

    jpeg_error_mgr manager {};
    std::jmp_buf escape {};
    char text[JMSG_LENGTH_MAX] = ""; ///< What was wrong.
};

} // namespace kez
