// SPDX-License-Identifier: MIT
/// Ownership of COM objects.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

namespace kez::player {

/// Releases a COM object when its owner goes.
struct ComRelease {
    void operator()(IUnknown* object) const { object->Release(); }
};

template <class Interface>
using ComPointer = std::unique_ptr<Interface, ComRelease>;

} // namespace kez::player
