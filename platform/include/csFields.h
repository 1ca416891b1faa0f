// Numbered fields of scene-graph containers: the value lists csMFInt,
// csMFByte, csMFVec2f, csMFVec3f, csMFVec4f and the reference list csMFRef.
#ifndef CS_FIELDS_H
#define CS_FIELDS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "csVec.h"

class csContainer;

class csField {
public:
    virtual ~csField() = default;
    virtual int getCount() const = 0;
};

// A list of plain values. Storage and every operation live here once; the
// named field classes below only fix the element type.
template <class T>
class csMFArray : public csField {
public:
    csMFArray() = default;
    explicit csMFArray(int count) : _values(count > 0 ? static_cast<size_t>(count) : 0) {}

    int getCount() const override { return static_cast<int>(_values.size()); }
    // Grows with default values or cuts the list.
    void setCount(int count) { _values.resize(count > 0 ? static_cast<size_t>(count) : 0); }
    void reserve(int count) {
        if (count > 0) _values.reserve(static_cast<size_t>(count));
    }
    // The value at `index`, or a default value outside the list.
    T get(int index) const {
        if (index < 0 || index >= getCount()) return T();
        return _values[static_cast<size_t>(index)];
    }
    // Writes one value, growing the list when `index` lies beyond its end.
    // A negative index is ignored.
    void set(int index, const T& value) {
        if (index < 0) return;
        if (index >= getCount()) _values.resize(static_cast<size_t>(index) + 1);
        _values[static_cast<size_t>(index)] = value;
    }
    void append(const T& value) { _values.push_back(value); }
    // Copies `count` values from `first` into `out`. False, with nothing
    // copied, when the range does not lie wholly inside the list.
    bool getRange(int first, int count, T* out) const {
        if (!inside(first, count) || out == nullptr) return false;
        for (int i = 0; i < count; ++i) out[i] = _values[static_cast<size_t>(first + i)];
        return true;
    }
    // Copies `count` values from `in` to the list from `first` on, growing
    // it as needed. False for a negative range or a null source.
    bool setRange(int first, int count, const T* in) {
        if (first < 0 || count < 0 || in == nullptr) return false;
        size_t end = static_cast<size_t>(first) + static_cast<size_t>(count);
        if (end > _values.size()) _values.resize(end);
        for (int i = 0; i < count; ++i) _values[static_cast<size_t>(first + i)] = in[i];
        return true;
    }
    void clear() { _values.clear(); }
    const T* getData() const { return _values.data(); }

private:
    bool inside(int first, int count) const {
        return first >= 0 && count >= 0 && static_cast<size_t>(first) + static_cast<size_t>(count) <= _values.size();
    }

    std::vector<T> _values;
};

// Distinct classes rather than aliases, so that they can be declared ahead.
class csMFInt : public csMFArray<int> {
public:
    using csMFArray<int>::csMFArray;
};
class csMFByte : public csMFArray<std::uint8_t> {
public:
    using csMFArray<std::uint8_t>::csMFArray;
};
class csMFVec2f : public csMFArray<csVec2f> {
public:
    using csMFArray<csVec2f>::csMFArray;
};
class csMFVec3f : public csMFArray<csVec3f> {
public:
    using csMFArray<csVec3f>::csMFArray;
};
class csMFVec4f : public csMFArray<csVec4f> {
public:
    using csMFArray<csVec4f>::csMFArray;
};

// A list of references to containers. Every element holds one reference on
// the container it names; null elements are allowed and hold nothing.
class csMFRef : public csField {
public:
    csMFRef() = default;
    ~csMFRef() override;
    csMFRef(const csMFRef&) = delete;
    csMFRef& operator=(const csMFRef&) = delete;

    int getCount() const override { return static_cast<int>(_refs.size()); }
    // The raw array, for readers that walk it by count and stride.
    std::size_t getStride() const { return sizeof(csContainer*); }
    csContainer* const* getBase() const { return _refs.data(); }

    csContainer* get(int index) const;
    // Replaces element `index`, growing the list with nulls when needed. Refs
    // the new container before it unrefs the old one, which may own it.
    void set(int index, csContainer* value);
    // Appends and refs.
    void append(csContainer* value);
    // Inserts before `index` (clamped to the end) and refs.
    void insert(int index, csContainer* value);
    // Removes element `index` and unrefs it; false when out of range.
    bool removeIndex(int index);
    // Index of the first element equal to `value`, or -1.
    int find(const csContainer* value) const;
    // Unrefs every element and empties the list.
    void clear();

private:
    std::vector<csContainer*> _refs;  // each element owning one reference
};

#endif
