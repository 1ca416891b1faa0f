// A shape that may hold parametric geometry: a primitive solid that a
// tessellate action turns into an indexed face set of its own geometry list.
#ifndef OP_REP_H
#define OP_REP_H

#include "csShape.h"

class opRep : public csShape {
    CS_DECLARE_CLASS_TYPE;

    opRep() = default;

    // True while the geometry list holds what a tessellation made.
    bool isTessellated() const { return _tessellated; }
    // Called by the tessellate actions once they added the geometry.
    void markTessellated() { _tessellated = true; }

    // A new rep of the same kind, parameters and name that draws this
    // one's geometry: the geometry objects are shared, not copied. So
    // several shapes draw one tessellated primitive, each with an
    // appearance of its own. The new rep has no appearance.
    opRep* makeInstance();

protected:
    ~opRep() override = default;
    // A new rep of the same kind and parameters, without geometry.
    virtual opRep* copyParameters() const { return new opRep(); }
    // A changed parameter makes the tessellation stale: it is dropped, so
    // that the next tessellate action builds it anew.
    void parametersChanged();

private:
    bool _tessellated = false;
};

#endif
