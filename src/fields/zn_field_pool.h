// Storage of the runtime fields. A world has a field object for every field
// of every node, tens of them per node, and keeps them all; the general
// allocator pays for bookkeeping that such objects never need.
#ifndef ZN_FIELD_POOL_H
#define ZN_FIELD_POOL_H

#include <cstddef>

// Blocks of a few sizes, carved from large chunks and reused once released.
// Chunks are never given back: they hold the fields of worlds that live as
// long as the process. One thread, like the rest of the system.
class znFieldPool {
public:
    static void* allocate(std::size_t size);
    static void release(void* block, std::size_t size);
};

#endif
