// VirtualSlot.h: the virtual slot that a pointer to a member function names,
// so that a suite can check the slot order of an interface, which is part of
// the binary contract.
//
// On the Itanium C++ ABI a pointer to a virtual member function holds 1 plus
// the byte offset of its entry in the virtual table, and an adjustment of 0.
// The virtual destructor takes the first two entries (complete and deleting),
// so slot k (k >= 1) is entry k + 1.
#ifndef ZELT_TESTS_VIRTUALSLOT_H
#define ZELT_TESTS_VIRTUALSLOT_H

#include <cstddef>
#include <cstdint>
#include <cstring>

// The two words of a pointer to a member function.
struct MemberFunctionPointerBits {
    std::uintptr_t pointer;
    std::ptrdiff_t adjustment;
};

template <class MemberFunction>
MemberFunctionPointerBits BitsOf(MemberFunction function) {
    static_assert(sizeof(MemberFunction) == sizeof(MemberFunctionPointerBits),
                  "not an Itanium C++ ABI member function pointer");
    MemberFunctionPointerBits bits{};
    std::memcpy(&bits, &function, sizeof bits);
    return bits;
}

// The slot the function occupies after the destructor's two entries, or -1
// for a pointer that does not name a virtual function.
template <class MemberFunction>
long VirtualSlotOf(MemberFunction function) {
    const MemberFunctionPointerBits bits = BitsOf(function);
    const std::uintptr_t entrySize = sizeof(void*);
    if (bits.adjustment != 0 || bits.pointer % entrySize != 1) return -1;
    return static_cast<long>((bits.pointer - 1) / entrySize) - 1;
}

#endif  // ZELT_TESTS_VIRTUALSLOT_H
