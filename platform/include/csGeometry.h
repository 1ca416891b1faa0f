// Base of everything that a shape can draw.
#ifndef CS_GEOMETRY_H
#define CS_GEOMETRY_H

#include "csBoxBound.h"
#include "csContainer.h"

class csGeometry : public csContainer {
    CS_DECLARE_CLASS_TYPE;

    // The axis-aligned bound of the geometry's points, into `bound`; the
    // empty bound when it has none. The base has none.
    virtual void getBoxBound(csBoxBound* bound) const;

protected:
    csGeometry() = default;
    ~csGeometry() override = default;
};

#endif
