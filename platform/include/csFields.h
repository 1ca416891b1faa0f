// Numbered fields of scene-graph containers.
#ifndef CS_FIELDS_H
#define CS_FIELDS_H

#include <cstddef>
#include <vector>

class csContainer;

class csField {
public:
    virtual ~csField() = default;
    virtual int getCount() const = 0;
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
