#pragma once

#include <cstdint>
#include <cstring>

/// Place of a virtual function in its class's table, read from the pointer to it (Itanium ABI); -1
/// for what is no plain virtual function of a first base.
template <class Member> int tablePlace(Member member)
{
    std::uintptr_t word[2];
    static_assert(sizeof member == sizeof word, "a pointer to member has two words");
    std::memcpy(word, &member, sizeof word);
    return (word[0] & 1) && word[1] == 0 ? int(word[0] / sizeof(void *)) : -1;
}
