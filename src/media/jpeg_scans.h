// SPDX-License-Identifier: MIT
/// Bounds what a file of several scans costs. Such a file is held whole, two bytes a sample, before
/// its first row comes out: what the rows have used is given back at once, so that the file and the
/// picture together take little more than the larger of them. And thousands of tiny scans would
/// keep the decoder busy for hours: honest files have a dozen.
#pragma once

#include "media/jpeg_error.h"

#include <array>

namespace kez {

struct JpegScans {
    /// Makes the decoder, whose errors are attached, report here.
    void attachTo(jpeg_decompress_struct& info, JpegErrors& errorsOfInfo);

    /// The samples of one colour: which of their rows are still needed.
    struct Samples {
        jvirt_barray_ptr array = nullptr;
        JBLOCKROW kept = nullptr; ///< The first row that was not given back.
        JDIMENSION keptRow = 0;
    };

    jpeg_progress_mgr manager {}; // first: libjpeg hands back a pointer to it
    JpegErrors* errors = nullptr;
    decltype(jpeg_memory_mgr::access_virt_barray) access = nullptr; ///< The library's own.
    std::array<Samples, MAX_COMPONENTS> samples {};
};

} // namespace kez
