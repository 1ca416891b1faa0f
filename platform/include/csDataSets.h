// The data sets that geometry draws from: csCoordSet3f, csNormalSet3f,
// csColorSet4f, csTexCoordSet2f and csIndexSet. Each is one value list.
#ifndef CS_DATA_SETS_H
#define CS_DATA_SETS_H

#include "csContainer.h"

// Storage and field lookup, once for every set; the sets below only name
// their list.
template <class F>
class csDataSet : public csContainer {
public:
    // Field numbers of a data set.
    enum { VALUES = 1 };

    int getCount() const { return _values.getCount(); }
    csField* getField(short number) override {
        if (number == VALUES) return &_values;
        return csContainer::getField(number);
    }

protected:
    explicit csDataSet(int count) : _values(count) {}
    ~csDataSet() override = default;

    F _values;
};

class csCoordSet3f : public csDataSet<csMFVec3f> {
    CS_DECLARE_CLASS_TYPE;
    explicit csCoordSet3f(int count = 0) : csDataSet(count) {}
    csMFVec3f& point() { return _values; }
    const csMFVec3f& point() const { return _values; }

protected:
    ~csCoordSet3f() override = default;
};

class csNormalSet3f : public csDataSet<csMFVec3f> {
    CS_DECLARE_CLASS_TYPE;
    explicit csNormalSet3f(int count = 0) : csDataSet(count) {}
    csMFVec3f& vector() { return _values; }
    const csMFVec3f& vector() const { return _values; }

protected:
    ~csNormalSet3f() override = default;
};

// Colours as red, green, blue and alpha.
class csColorSet4f : public csDataSet<csMFVec4f> {
    CS_DECLARE_CLASS_TYPE;
    explicit csColorSet4f(int count = 0) : csDataSet(count) {}
    csMFVec4f& color() { return _values; }
    const csMFVec4f& color() const { return _values; }

protected:
    ~csColorSet4f() override = default;
};

class csTexCoordSet2f : public csDataSet<csMFVec2f> {
    CS_DECLARE_CLASS_TYPE;
    explicit csTexCoordSet2f(int count = 0) : csDataSet(count) {}
    csMFVec2f& point() { return _values; }
    const csMFVec2f& point() const { return _values; }

protected:
    ~csTexCoordSet2f() override = default;
};

class csIndexSet : public csDataSet<csMFInt> {
    CS_DECLARE_CLASS_TYPE;
    explicit csIndexSet(int count = 0) : csDataSet(count) {}
    csMFInt& index() { return _values; }
    const csMFInt& index() const { return _values; }

protected:
    ~csIndexSet() override = default;
};

#endif
