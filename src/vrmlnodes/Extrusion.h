// A surface swept by a cross-section along a spine: at each spine point
// the cross-section is scaled, turned and set square to the spine, and
// neighbouring copies are joined; caps may close the ends.
#ifndef EXTRUSION_H
#define EXTRUSION_H

#include "vrmlnodes/VRMLNodebase.h"

class Extrusion : public VRMLNode {
public:
    explicit Extrusion(znInternal* pair);
    ~Extrusion() override = default;
    void processEvent(Event& event) override;

protected:
    SFBool* beginCap;         // borrowed: the node's own field
    SFBool* ccw;              // borrowed: the node's own field
    SFBool* convex;           // borrowed: the node's own field
    SFFloat* creaseAngle;     // borrowed: the node's own field
    MFVec2f* crossSection;    // borrowed: the node's own field
    SFBool* endCap;           // borrowed: the node's own field
    MFRotation* orientation;  // borrowed: the node's own field
    MFVec2f* scale;           // borrowed: the node's own field
    SFBool* solid;            // borrowed: the node's own field
    MFVec3f* spine;           // borrowed: the node's own field
    // Raised by every change: the back-end builds the surface anew.
    unsigned char sweepDirty = 0;
};

#endif
