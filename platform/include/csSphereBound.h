// A bounding sphere; a negative radius marks the empty bound.
#ifndef CS_SPHERE_BOUND_H
#define CS_SPHERE_BOUND_H

#include "csVec.h"

class csSphereBound {
public:
    csSphereBound() { makeEmpty(); }
    void makeEmpty();
    bool isEmpty() const { return radius < 0.0f; }
    // Grows just enough to take the point in.
    void extendBy(const csVec3f& point);
    bool contains(const csVec3f& point) const;

    csVec3f center;
    float radius = -1.0f;
};

#endif
