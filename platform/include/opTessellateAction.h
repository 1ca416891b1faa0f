// Replaces parametric content by polygons. apply walks a node and the
// groups below it; every primitive that the concrete action handles, and
// that holds no geometry yet, gets a csIndexedFaceSet with per-vertex
// normals of unit length and texture coordinates, one shared index set, and
// counter-clockwise faces seen from outside.
#ifndef OP_TESSELLATE_ACTION_H
#define OP_TESSELLATE_ACTION_H

#include "csObject.h"

class csNode;
class opRep;

class opTessellateAction : public csObject {
    CS_DECLARE_CLASS_TYPE;

    // Answers the number of primitives tessellated.
    int apply(csNode* node);

protected:
    opTessellateAction() = default;
    ~opTessellateAction() override = default;
    // Builds the geometry of `rep` when this action handles its class;
    // false when it does not.
    virtual bool tessellate(opRep* rep) = 0;
};

#endif
