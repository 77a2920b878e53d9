// SPDX-License-Identifier: MIT
#include "libyuv_peers.h"

#include <libyuv/convert_from_argb.h>
#include <libyuv/planar_functions.h>
#include <libyuv/rotate_argb.h>
#include <libyuv/scale_argb.h>

#include <functional>
#include <utility>

namespace kez::bench {

namespace {

class Call : public Peer {
public:
    explicit Call(std::function<void()> call)
        : call_(std::move(call))
    {
    }

    void draw() override { call_(); }

private:
    std::function<void()> call_;
};

std::unique_ptr<Peer> peerOf(std::function<void()> call)
{
    return std::make_unique<Call>(std::move(call));
}

const std::uint8_t* bytesOf(const std::uint32_t* pixels)
{
    return reinterpret_cast<const std::uint8_t*>(pixels);
}

constexpr int canvasStride = 4 * canvasWidth;

std::uint8_t* placeFor(Canvas canvas, int width, int height)
{
    const int left = (canvasWidth - width) / 2;
    const int top = (canvasHeight - height) / 2;
    return reinterpret_cast<std::uint8_t*>(canvas.data() + top * canvasWidth + left);
}

} // namespace

std::unique_ptr<Peer> yuvBlend(Canvas canvas, const PixelView& sprite)
{
    std::uint8_t* const to = placeFor(canvas, sprite.width, sprite.height);
    return peerOf([=] {
        libyuv::ARGBBlend(bytesOf(sprite.pixels), 4 * sprite.width, to, canvasStride, to,
            canvasStride, sprite.width, sprite.height);
    });
}

std::unique_ptr<Peer> yuvScaled(
    Canvas canvas, const PixelView& sprite, int displayedWidth, int displayedHeight)
{
    std::uint8_t* const to = placeFor(canvas, displayedWidth, displayedHeight);
    return peerOf([=] {
        libyuv::ARGBScale(bytesOf(sprite.pixels), 4 * sprite.width, sprite.width, sprite.height, to,
            canvasStride, displayedWidth, displayedHeight, libyuv::kFilterNone);
    });
}

std::unique_ptr<Peer> yuvFill(Canvas canvas, int width, int height, std::uint32_t pixel)
{
    std::uint8_t* const to = placeFor(canvas, width, height);
    return peerOf([=] { libyuv::ARGBRect(to, canvasStride, 0, 0, width, height, pixel); });
}

std::unique_ptr<Peer> yuvTurn(const PixelView& picture)
{
    const auto area = static_cast<std::size_t>(picture.width * picture.height);
    auto turned = std::make_shared<std::vector<std::uint8_t>>(4 * area);
    return peerOf([=] {
        libyuv::ARGBRotate(bytesOf(picture.pixels), 4 * picture.width, turned->data(),
            4 * picture.height, picture.width, picture.height, libyuv::kRotate90);
    });
}

std::unique_ptr<Peer> yuvPresent(Canvas canvas, int bits)
{
    const int stride = canvasWidth * bits / 8;
    auto display = std::make_shared<std::vector<std::uint8_t>>(
        static_cast<std::size_t>(stride * canvasHeight));
    const auto convert = bits == 24 ? libyuv::ARGBToRGB24 : libyuv::ARGBToRGB565;
    return peerOf([=] {
        convert(bytesOf(canvas.data()), canvasStride, display->data(), stride, canvasWidth,
            canvasHeight);
    });
}

} // namespace kez::bench
