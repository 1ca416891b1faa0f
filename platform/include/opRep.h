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

protected:
    ~opRep() override = default;
    // A changed parameter makes the tessellation stale: it is dropped, so
    // that the next tessellate action builds it anew.
    void parametersChanged();

private:
    bool _tessellated = false;
};

#endif
