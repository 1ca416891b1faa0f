// Tessellates cuboids: six quadrilaterals on 24 vertices, each face carrying
// the whole texture.
#ifndef OP_TESS_CUBOID_ACTION_H
#define OP_TESS_CUBOID_ACTION_H

#include "opTessellateAction.h"

class opTessCuboidAction : public opTessellateAction {
    CS_DECLARE_CLASS_TYPE;

    opTessCuboidAction() = default;

protected:
    ~opTessCuboidAction() override = default;
    bool tessellate(opRep* rep) override;
};

#endif
