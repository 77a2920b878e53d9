// SPDX-License-Identifier: MIT
/// What a stand-in for one of the system's objects has to have, but the module never calls.
#pragma once

#include <windows.h>

/// A method of that kind: it fails.
#define KEZ_NEVER_CALLED(method, ...)                                                              \
    HRESULT STDMETHODCALLTYPE method(__VA_ARGS__) override                                         \
    {                                                                                              \
        return E_NOTIMPL;                                                                          \
    }
