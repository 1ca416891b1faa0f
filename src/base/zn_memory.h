// The out-of-memory rule of the whole library: exhausted memory throws
// std::bad_alloc, which ends the load that ran out (the loader reports "out
// of memory"); the process and the host's own handlers are left alone.
#ifndef ZN_MEMORY_H
#define ZN_MEMORY_H

#include <new>

[[noreturn]] void znOutOfMemory();

// Allocates `n` value-initialised elements, or throws std::bad_alloc.
template <class T>
T* znAllocate(int n) {
    T* p = new (std::nothrow) T[n > 0 ? n : 1]();
    if (!p) znOutOfMemory();
    return p;
}

#endif
