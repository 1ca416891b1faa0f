#include "fields/zn_field_pool.h"

#include <new>
#include <vector>

#include "fields/zn_array.h"

namespace {

// Sizes go up in steps of 16 bytes; larger blocks take the general path.
constexpr std::size_t kStep = 16;
constexpr std::size_t kLargest = 256;
constexpr std::size_t kClasses = kLargest / kStep;
constexpr std::size_t kChunkSize = 64 * 1024;

#if defined(__SANITIZE_ADDRESS__)
// The address checker must see every block on its own.
constexpr bool kPooled = false;
#else
constexpr bool kPooled = true;
#endif

struct FreeBlock {
    FreeBlock* next;
};

struct Pool {
    FreeBlock* free[kClasses] = {};
    char* chunk = nullptr;  // borrowed from `chunks`: where new blocks are cut
    std::size_t left = 0;
    std::vector<char*> chunks;  // owning, for the life of the process
};

Pool& pool() {
    static Pool* instance = new Pool;  // outlives every field, on purpose
    return *instance;
}

std::size_t classOf(std::size_t size) { return (size + kStep - 1) / kStep - 1; }

}  // namespace

void* znFieldPool::allocate(std::size_t size) {
    if (!kPooled || size == 0 || size > kLargest) {
        return ::operator new(size);
    }
    Pool& p = pool();
    const std::size_t k = classOf(size);
    if (FreeBlock* block = p.free[k]) {
        p.free[k] = block->next;
        return block;
    }
    const std::size_t rounded = (k + 1) * kStep;
    if (p.left < rounded) {
        p.chunk = static_cast<char*>(::operator new(kChunkSize));
        p.chunks.push_back(p.chunk);
        p.left = kChunkSize;
    }
    void* block = p.chunk;
    p.chunk += rounded;
    p.left -= rounded;
    return block;
}

void znFieldPool::release(void* block, std::size_t size) {
    if (block == nullptr) return;
    if (!kPooled || size == 0 || size > kLargest) {
        ::operator delete(block);
        return;
    }
    Pool& p = pool();
    const std::size_t k = classOf(size);
    auto* freed = static_cast<FreeBlock*>(block);
    freed->next = p.free[k];
    p.free[k] = freed;
}
