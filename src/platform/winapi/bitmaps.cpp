// SPDX-License-Identifier: MIT
/// Bitmaps from files, and what is done with them: LoadImageA, GetObjectA, StretchBlt.
#include "bmp_decoder.h"
#include "device_context.h"
#include "winbase.h"
#include "wingdi.h"
#include "winuser.h"

#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kez::winapi {

namespace {

constexpr off_t largestFile = 512 << 20;

class OpenFile {
public:
    // Without O_NONBLOCK a pipe without a writer would hold us up for ever.
    explicit OpenFile(LPCSTR path)
        : descriptor_(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
    {
    }

    ~OpenFile()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }

    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    DWORD read(std::vector<BYTE>& bytes) const
    {
        struct stat info { };

        if (descriptor_ < 0)
            return ERROR_FILE_NOT_FOUND;
        if (::fstat(descriptor_, &info) != 0 || !S_ISREG(info.st_mode))
            return ERROR_ACCESS_DENIED;
        if (info.st_size > largestFile)
            return ERROR_FILE_TOO_LARGE;
        bytes.resize(static_cast<std::size_t>(info.st_size));
        std::size_t filled = 0;
        while (filled < bytes.size()) {
            const ssize_t count = ::read(descriptor_, bytes.data() + filled, bytes.size() - filled);
            if (count <= 0)
                return count == 0 ? ERROR_HANDLE_EOF : ERROR_READ_FAULT;
            filled += static_cast<std::size_t>(count);
        }
        return NO_ERROR;
    }

private:
    int descriptor_;
};

DWORD loadBitmap(LPCSTR path, Bitmap& bitmap)
{
    std::vector<BYTE> bytes;
    const DWORD error = OpenFile(path).read(bytes);
    return error == NO_ERROR ? decodeBmp(bytes, bitmap) : error;
}

// The pixel of `from` that stands for place `at` of `count` places.
int nearest(int at, int count, int from)
{
    return static_cast<int>(std::int64_t { at } * from / count);
}

DWORD resize(Bitmap& bitmap, int width, int height)
{
    const int wide = width != 0 ? width : bitmap.width;
    const int high = height != 0 ? height : bitmap.height;
    if (wide == bitmap.width && high == bitmap.height)
        return NO_ERROR;
    Bitmap sized;
    if (!sized.allocate(wide, high))
        return ERROR_NOT_ENOUGH_MEMORY;
    for (int y = 0; y < high; ++y)
        for (int x = 0; x < wide; ++x)
            std::memcpy(sized.row(y) + 3 * x,
                bitmap.row(nearest(y, high, bitmap.height)) + 3 * nearest(x, wide, bitmap.width),
                3);
    bitmap = std::move(sized);
    return NO_ERROR;
}

/// One row of a stretched picture.
struct Stretch {
    const PixelView& from;
    const PixelView& to;
    RECT source;
    RECT target;

    void drawRow(int y) const
    {
        const int width = target.right - target.left;
        const int row = source.top
            + nearest(y - target.top, target.bottom - target.top, source.bottom - source.top);
        if (y < 0 || y >= to.height || row < 0 || row >= from.height)
            return;
        const RECT seen = intersection(target, { 0, y, to.width, y + 1 });
        for (int x = seen.left; x < seen.right; ++x) {
            const int column
                = source.left + nearest(x - target.left, width, source.right - source.left);
            if (column >= 0 && column < from.width)
                drawPixel(from.at(column, row), to.at(x, y));
        }
    }

private:
    void drawPixel(const BYTE* pixel, BYTE* place) const
    {
        if (*from.format == *to.format)
            std::memcpy(place, pixel, static_cast<std::size_t>(from.format->bytes()));
        else
            to.format->paint(place, from.format->unpack(from.format->read(pixel)));
    }
};

HANDLE refuse(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

constexpr int largestSide = 32767;

bool areSides(int width, int height)
{
    return width >= 0 && height >= 0 && width <= largestSide && height <= largestSide;
}

} // namespace

} // namespace kez::winapi

using namespace kez::winapi;

HANDLE WINAPI LoadImageA(HINSTANCE, LPCSTR name, UINT type, int width, int height, UINT flags)
{
    constexpr UINT known = LR_LOADFROMFILE | LR_CREATEDIBSECTION;
    if (name == nullptr || type != IMAGE_BITMAP || (flags & LR_CREATEDIBSECTION) == 0
        || (flags & ~known) != 0 || !areSides(width, height))
        return refuse(ERROR_INVALID_PARAMETER);
    if ((flags & LR_LOADFROMFILE) == 0)
        return refuse(ERROR_RESOURCE_NAME_NOT_FOUND);
    Bitmap bitmap;
    DWORD error = loadBitmap(name, bitmap);
    if (error == NO_ERROR)
        error = resize(bitmap, width, height);
    if (error != NO_ERROR)
        return refuse(error);
    return gdiObjects().add(std::make_unique<GdiObject>(GdiObject { std::move(bitmap) }));
}

int WINAPI GetObjectA(HGDIOBJ handle, int size, LPVOID into)
{
    const GdiObject* object = gdiObjects().find(handle);
    if (object == nullptr || !std::holds_alternative<Bitmap>(object->what))
        return 0;
    if (into == nullptr)
        return sizeof(BITMAP);
    if (size < static_cast<int>(sizeof(BITMAP)))
        return 0;
    const Bitmap& bitmap = std::get<Bitmap>(object->what);
    const BITMAP description { 0, bitmap.width, bitmap.height, bitmap.pitch(), 1, 24,
        bitmap.bytes.get() };
    std::memcpy(into, &description, sizeof description);
    return sizeof description;
}

BOOL WINAPI StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
    int sourceY, int sourceWidth, int sourceHeight, DWORD operation)
{
    DeviceContext* const to = contexts().find(target);
    DeviceContext* const from = contexts().find(source);
    if (to == nullptr || from == nullptr || operation != SRCCOPY || width < 1 || height < 1
        || sourceWidth < 1 || sourceHeight < 1 || !areSides(width, height)
        || !areSides(sourceWidth, sourceHeight)) {
        SetLastError(
            to == nullptr || from == nullptr ? ERROR_INVALID_HANDLE : ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const PixelView pixels = from->target();
    const PixelView place = to->target();
    if (!pixels || !place)
        return FALSE;
    x += to->origin.x;
    y += to->origin.y;
    sourceX += from->origin.x;
    sourceY += from->origin.y;
    const Stretch stretch { pixels, place,
        { sourceX, sourceY, sourceX + sourceWidth, sourceY + sourceHeight },
        { x, y, x + width, y + height } };
    for (int row = 0; row < height; ++row)
        stretch.drawRow(y + row);
    return TRUE;
}
