// An axis-aligned bound: a minimum and a maximum corner.
#ifndef CS_BOX_BOUND_H
#define CS_BOX_BOUND_H

#include "csVec.h"

class csBoxBound {
public:
    csBoxBound() { makeEmpty(); }
    // The empty bound has its minimum above its maximum, so that the first
    // point it is extended by becomes both corners.
    void makeEmpty();
    bool isEmpty() const;
    void extendBy(const csVec3f& point);
    void extendBy(const csBoxBound& box);
    // Inclusive of the faces; the empty bound contains nothing.
    bool contains(const csVec3f& point) const;
    bool contains(float x, float y, float z) const { return contains(csVec3f(x, y, z)); }

    csVec3f min;
    csVec3f max;
};

#endif
