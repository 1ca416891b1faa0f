// _znArray, the owning pointer-and-count array of colours, vectors and
// rotations.
#ifndef ZN_ARRAY_H
#define ZN_ARRAY_H

#include <algorithm>
#include <new>

#include "base/zn_memory.h"

// Up to four elements (a colour, a vector, a rotation) live inside the
// object: a mesh holds millions of them, and one allocation each would cost
// more than the numbers themselves. `data` points at the inline store then.
template <class T>
class _znArray {
public:
    static constexpr int kInline = 4;

    _znArray() = default;
    explicit _znArray(int n) : data(n > 0 ? freshStorage(n) : nullptr), count(n > 0 ? n : 0) {}
    _znArray(const T* values, int n) : _znArray(n) { std::copy(values, values + count, data); }
    _znArray(const _znArray& other) : _znArray(other.data, other.count) {}
    _znArray(_znArray&& other) noexcept { take(other); }
    ~_znArray() { release(); }

    // The storage grows only when the source holds more than the count seen
    // so far; otherwise the count is just taken over. A colour can so carry
    // any count: callers rely on that tolerance.
    _znArray& operator=(const _znArray& other) {
        if (this == &other) return *this;
        resize(other.count);
        std::copy(other.data, other.data + other.count, data);
        return *this;
    }
    _znArray& operator=(_znArray&& other) noexcept {
        if (this == &other) return *this;
        release();
        take(other);
        return *this;
    }

    // Makes the count `n`, replacing the storage only when the current count
    // is smaller. New storage starts zeroed.
    void resize(int n) {
        if (n < 0) n = 0;
        if (count < n) {
            T* fresh = n <= kInline ? nullptr : znAllocate<T>(n);
            release();
            data = fresh != nullptr ? fresh : freshStorage(n);
        }
        count = n;
    }

    int size() const { return count; }
    T& operator[](int i) { return data[i]; }
    const T& operator[](int i) const { return data[i]; }

    T* data = nullptr;  // owning, unless it points at the inline store
    int count = 0;

private:
    bool isInline() const { return data == inlineStore; }
    T* freshStorage(int n) {
        if (n > kInline) return znAllocate<T>(n);
        std::fill(inlineStore, inlineStore + kInline, T());
        return inlineStore;
    }
    void release() {
        if (!isInline()) delete[] data;
        data = nullptr;
    }
    // Leaves `other` empty.
    void take(_znArray& other) noexcept {
        count = other.count;
        if (other.isInline()) {
            std::copy(other.inlineStore, other.inlineStore + kInline, inlineStore);
            data = inlineStore;
        } else {
            data = other.data;
        }
        other.data = nullptr;
        other.count = 0;
    }

    T inlineStore[kInline] = {};
};

#endif
