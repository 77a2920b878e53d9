// SPDX-License-Identifier: MIT
#include "control_kernel.h"
#include "imported.h"

namespace {

void (*heard)(const char* text, void* context) = nullptr;
void* heardContext = nullptr;

void WINAPI hearDebugString(const char* text)
{
    if (heard != nullptr && text != nullptr)
        heard(text, heardContext);
}

KEZ_IN_PLACE_OF("OutputDebugStringA@4", hearDebugString);

} // namespace

namespace kez::winapi {

void setDebugOutputHook(void (*hook)(const char* text, void* context), void* context)
{
    heard = hook;
    heardContext = context;
}

} // namespace kez::winapi
