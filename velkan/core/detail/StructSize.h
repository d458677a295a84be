#pragma once

// Records that Windows takes by size (cbSize and friends) are filled with
// sizeof of the platform's own structure. Where the library depends on the
// 32-bit layout having a particular size, VELKAN_X86_SIZE states it: the
// check runs on x86 only, so the x86-64 build keeps the platform's sizes,
// which grow with every pointer or handle the record holds.
#if defined(__i386__) || defined(_M_IX86)
#define VELKAN_X86_SIZE(type, bytes) \
    static_assert(sizeof(type) == (bytes), #type " must be " #bytes " bytes on x86")
#else
#define VELKAN_X86_SIZE(type, bytes) static_assert(sizeof(type) >= (bytes), #type " cannot shrink on x86-64")
#endif
