// SPDX-License-Identifier: MIT
// A host of the platform compiler's making: bound to the library by that compiler's names alone,
// with no runtime library of its own. Ends with 0, or with the number of the first thing that was
// wrong.
#include "host/kez.h"

namespace {

int failed = 0;

void expect(int number, bool holds)
{
    if (!holds && failed == 0)
        failed = number;
}

template <class Value>
Value readAnew(const Value& exported)
{
    return *const_cast<const volatile Value*>(&exported);
}

void checkDataAtRest()
{
    expect(1, !Kez::exit);
    expect(2, readAnew(Kez::image) == nullptr);
    expect(3, readAnew(Kez::imageName) == nullptr);
    expect(4, Kez::imageWidth == 0 && Kez::imageHeight == 0);
    expect(5, Kez::disk == 0);
    Kez::disk = 77;
    expect(6, Kez::disk == 77);
}

void checkCalls()
{
    expect(10, Kez::RGBA(1, 2, 3, 4) == 0x04010203);
    expect(11, !Kez::process());
    Kez::close();
    Kez::initialize(nullptr, nullptr, nullptr, nullptr, nullptr, 32, "client", 1, 2, 3, 4);
    Kez::initializeCamera();
    Kez::open();
    expect(12, !Kez::process());
    Kez::run(Kez::book, 1 << 20, false, false);
    for (int pass = 0; pass < 3; ++pass)
        expect(13, Kez::process() && !Kez::exit);
    Kez::close();
    Kez::release();
    expect(14, !Kez::process());
    expect(15, Kez::disk == 77);
}

} // namespace

extern "C" int start()
{
    checkDataAtRest();
    checkCalls();
    return failed;
}
