// SPDX-License-Identifier: MIT
// Nobody would answer a message box in a test: each is answered at once.
#include "imported.h"

namespace {

int WINAPI answerAtOnce(HWND, const char*, const char*, UINT)
{
    return IDOK;
}

KEZ_IN_PLACE_OF("MessageBoxA@16", answerAtOnce);

} // namespace
