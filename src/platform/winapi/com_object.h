// SPDX-License-Identifier: MIT
/// Counting and the question for other interfaces, once for every object that this layer hands out.
#pragma once

#include "unknwn.h"

#include <atomic>
#include <cstring>

namespace kez::winapi {

inline bool sameId(const IID& a, const IID& b)
{
    return std::memcmp(&a, &b, sizeof(IID)) == 0;
}

/// Born with one reference, destroyed by the last `Release`.
template <class Interface, const IID* id>
class ComObject : public Interface {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, LPVOID* object) override
    {
        if (object == nullptr)
            return E_INVALIDARG;
        *object = nullptr;
        if (!sameId(wanted, IID_IUnknown) && !sameId(wanted, *id))
            return E_NOINTERFACE;
        *object = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --references_;
        if (left == 0)
            delete this;
        return left;
    }

protected:
    virtual ~ComObject() = default;

private:
    std::atomic<ULONG> references_ { 1 };
};

} // namespace kez::winapi
