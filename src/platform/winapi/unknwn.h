// SPDX-License-Identifier: MIT
/// The root of all interfaces: reference counting and the question for other interfaces.
#pragma once

#include "windef.h"

extern const IID IID_IUnknown;

struct IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, LPVOID* object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;
};
