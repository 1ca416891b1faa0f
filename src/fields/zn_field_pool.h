// Storage of the runtime nodes and fields. A world has a field object for
// every field of every node, tens of them per node, and keeps them all; the
// general allocator pays for bookkeeping that such objects never need.
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

// For the small arrays that every node of a world has, such as its table of
// fields: the general allocator's bookkeeping would be a fifth of each.
template <class T>
struct znPoolAllocator {
    using value_type = T;
    znPoolAllocator() = default;
    template <class U>
    znPoolAllocator(const znPoolAllocator<U>&) {}
    T* allocate(std::size_t n) { return static_cast<T*>(znFieldPool::allocate(n * sizeof(T))); }
    void deallocate(T* block, std::size_t n) { znFieldPool::release(block, n * sizeof(T)); }
    template <class U>
    bool operator==(const znPoolAllocator<U>&) const { return true; }
    template <class U>
    bool operator!=(const znPoolAllocator<U>&) const { return false; }
};

#endif
