// SPDX-License-Identifier: MIT
#include "media/fake_camera.h"

#include <algorithm>
#include <cstring>

namespace kez::test {

void FakeCamera::take(int pictures)
{
    for (; pictures > 0 && counter < static_cast<int>(places.size()); --pictures)
        places[static_cast<std::size_t>(counter++)] = ++taken;
}

std::uint32_t FakeCamera::answer(bool asksCamera)
{
    const int call = ++calls;
    std::uint32_t result = CameraOk;
    if (const auto failure = failures.find(call); failure != failures.end())
        result = failure->second;
    else if (asksCamera && !plugged)
        result = CameraTimeout;
    else if (asksCamera && busyCalls > 0 && busyCalls-- > 0)
        result = CameraBusy;
    return result;
}

FakeCamera& fakeCamera()
{
    static FakeCamera& only = *new FakeCamera; // the link closes it at the very end
    return only;
}

namespace {

// Ends every call, so that the hook sees what the call has done.
std::uint32_t done(std::uint32_t result)
{
    if (fakeCamera().afterCall)
        fakeCamera().afterCall(fakeCamera().calls);
    return result;
}

template <typename Action>
std::uint32_t ask(Action&& action)
{
    const std::uint32_t result = fakeCamera().answer(true);
    if (result == CameraOk)
        action(fakeCamera());
    return done(result);
}

std::uint32_t open(const char* port)
{
    FakeCamera& fake = fakeCamera();
    fake.opened.emplace_back(port);
    const std::uint32_t result = fake.answer(false);
    return done(result == CameraOk && !fake.portsOpen ? CameraNotPresent : result);
}

std::uint32_t version(char* text)
{
    return ask([text](FakeCamera&) { std::memcpy(text, "sixteen bytes...", 16); });
}

std::uint32_t readIndex(unsigned char* index)
{
    return ask([index](FakeCamera& fake) { *index = static_cast<unsigned char>(fake.counter); });
}

std::uint32_t reset(int target)
{
    return ask([target](FakeCamera& fake) {
        fake.counter = target;
        fake.resets.push_back(target);
    });
}

std::uint32_t begin(int* lineCount, int* lineBytes)
{
    return ask([=](FakeCamera& fake) {
        *lineCount = fake.lineCount;
        *lineBytes = fake.lineBytes;
    });
}

std::uint32_t line(unsigned char* bytes, int count)
{
    if (fakeCamera().lineMs > 0)
        Sleep(fakeCamera().lineMs);
    return ask([=](FakeCamera& fake) {
        const auto place = static_cast<std::size_t>(std::min(fake.counter, 5));
        std::memset(bytes, fake.places[place], static_cast<std::size_t>(count));
    });
}

std::uint32_t colourize(unsigned char* raw, unsigned char* picture)
{
    std::memset(picture, raw[0], Camera::pictureBytes);
    return done(fakeCamera().answer(false));
}

std::uint32_t enlarge(unsigned char* picture, unsigned char* destination)
{
    *destination = *picture;
    return done(fakeCamera().answer(false));
}

} // namespace

CameraDriver fakeDriver()
{
    const auto acknowledge = [] { return ask([](FakeCamera&) {}); };
    const auto twoNumbers = [](int, int) { return ask([](FakeCamera&) {}); };
    return {
        .openCamera = open,
        .closeCamera = [] { return done(fakeCamera().answer(false)); },
        .getDriverVersion = version,
        .getFirmwareVersion = version,
        .getImageIndex = readIndex,
        .resetImageCounter = reset,
        .syncCamera = acknowledge,
        .beginUpload = begin,
        .uploadLine = line,
        .uploadInfo = [](MVIGRABINFO*) { return ask([](FakeCamera&) {}); },
        .colourizeImage = colourize,
        .enlargeImage = enlarge,
        .grabImage = twoNumbers,
        .grabResult = [] { return done(fakeCamera().grabAnswer); },
        .soundBuzzer = twoNumbers,
    };
}

} // namespace kez::test
