// SPDX-License-Identifier: MIT
/// Which slot of its class's table a virtual operation has. Reads pointers to members as both of
/// our compilers' systems lay them out (the Itanium C++ ABI): twice the pointer's size, the first
/// word holding the table offset plus one. A virtual destructor fills two entries there but counts
/// as one slot here.
#pragma once

#include <bit>
#include <cstdint>

namespace kez::test {

constexpr int destructorSlot = 4; ///< Of `Object` and everything derived from it.

template <typename Member>
int tableEntry(Member member)
{
    struct Words {
        std::intptr_t pointer;
        std::intptr_t adjustment;
    };

    const auto words = std::bit_cast<Words>(member);
    return static_cast<int>((words.pointer - 1) / static_cast<std::intptr_t>(sizeof(void*)));
}

/// The slot in a class derived from `Object`.
template <typename Member>
int slotOf(Member member)
{
    const int entry = tableEntry(member);
    return entry > destructorSlot ? entry - 1 : entry;
}

} // namespace kez::test
