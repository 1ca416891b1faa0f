// A group that the renderer turns about an axis so that its local z axis
// points at the viewer; a zero axis turns it freely, keeping its y axis
// upright on the screen.
#ifndef CS_BILLBOARD_H
#define CS_BILLBOARD_H

#include "csGroup.h"
#include "csVec.h"

class csBillboard : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    csBillboard() = default;

    void setAxisOfRotation(float x, float y, float z) { _axis.set(x, y, z); }
    const csVec3f& getAxisOfRotation() const { return _axis; }

protected:
    ~csBillboard() override = default;

private:
    csVec3f _axis{0.0f, 1.0f, 0.0f};
};

#endif
