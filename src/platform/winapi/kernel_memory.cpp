// SPDX-License-Identifier: MIT
#include "winbase.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>

namespace {

struct Block {
    std::unique_ptr<BYTE, decltype(&std::free)> bytes;
    SIZE_T size;
    UINT locks = 0;
    bool movable;
};

// A movable block's handle is the address of its entry, a fixed one's that of its bytes. Every
// handle is looked up before it is believed.
struct Memory {
    std::mutex lock;
    std::map<const void*, std::unique_ptr<Block>> blocks;
};

Memory& memory()
{
    static Memory& only = *new Memory; // objects that outlive main may still hold blocks
    return only;
}

Block* find(const void* handle)
{
    const auto found = memory().blocks.find(handle);
    if (found != memory().blocks.end())
        return found->second.get();
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

} // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes)
{
    // An empty block has an address, too.
    const SIZE_T room = bytes == 0 ? 1 : bytes;
    void* space = (flags & GMEM_ZEROINIT) != 0 ? std::calloc(room, 1) : std::malloc(room);
    if (space == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    auto block = std::make_unique<Block>(Block {
        { static_cast<BYTE*>(space), &std::free }, bytes, 0, (flags & GMEM_MOVEABLE) != 0 });
    void* handle = block->movable ? block.get() : space;
    const std::lock_guard guard(memory().lock);
    memory().blocks.emplace(handle, std::move(block));
    return handle;
}

HGLOBAL GlobalFree(HGLOBAL handle)
{
    if (handle == nullptr)
        return nullptr;
    const std::lock_guard guard(memory().lock);
    if (find(handle) == nullptr)
        return handle;
    memory().blocks.erase(handle);
    return nullptr;
}

LPVOID GlobalLock(HGLOBAL handle)
{
    const std::lock_guard guard(memory().lock);
    Block* block = find(handle);
    if (block == nullptr)
        return nullptr;
    if (block->movable)
        ++block->locks;
    return block->bytes.get();
}

BOOL GlobalUnlock(HGLOBAL handle)
{
    const std::lock_guard guard(memory().lock);
    Block* block = find(handle);
    if (block == nullptr)
        return FALSE;
    if (!block->movable)
        return TRUE;
    if (block->locks > 0 && --block->locks > 0)
        return TRUE;
    SetLastError(NO_ERROR);
    return FALSE;
}

SIZE_T GlobalSize(HGLOBAL handle)
{
    const std::lock_guard guard(memory().lock);
    const Block* block = find(handle);
    return block == nullptr ? 0 : block->size;
}

HGLOBAL GlobalHandle(LPCVOID address)
{
    const std::lock_guard guard(memory().lock);
    for (auto& [handle, block] : memory().blocks)
        if (block->bytes.get() == address)
            return const_cast<void*>(handle);
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

int MulDiv(int number, int numerator, int denominator)
{
    if (denominator == 0)
        return -1;
    const std::int64_t product = std::int64_t { number } * numerator;
    const std::int64_t divisor = denominator;
    const std::int64_t half = (divisor < 0 ? -divisor : divisor) / 2;
    const std::int64_t rounded = (product < 0 ? product - half : product + half) / divisor;
    return rounded == static_cast<int>(rounded) ? static_cast<int>(rounded) : -1;
}
