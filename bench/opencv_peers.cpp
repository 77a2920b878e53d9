// SPDX-License-Identifier: MIT
#include "opencv_peers.h"

#include <opencv2/imgproc.hpp>

namespace kez::bench {

namespace {

cv::Mat asMatrix(const std::uint8_t* pixels, PictureSize size)
{
    cv::setNumThreads(1);
    return { size.height, size.width, CV_8UC3, const_cast<std::uint8_t*>(pixels) };
}

} // namespace

void resizeByOpenCv(
    const std::uint8_t* source, PictureSize from, std::uint8_t* to, PictureSize size)
{
    const cv::Mat in = asMatrix(source, from);
    cv::Mat out = asMatrix(to, size);
    const bool shrinks = size.width <= from.width && size.height <= from.height;
    cv::resize(in, out, out.size(), 0, 0, shrinks ? cv::INTER_AREA : cv::INTER_LINEAR);
}

void turnByOpenCv(const std::uint8_t* source, PictureSize from, std::uint8_t* to)
{
    const cv::Mat in = asMatrix(source, from);
    cv::Mat out = asMatrix(to, { from.height, from.width });
    cv::rotate(in, out, cv::ROTATE_90_CLOCKWISE);
}

} // namespace kez::bench
