// Tessellates cones, cylinders and spheres.
//
// With n the sampling (held to kOpMinSampling..kOpMaxSampling when the
// geometry is made, while getSampling answers what was set):
// - sphere: n segments around the z axis and n bands from pole to pole,
//   2n(n-1) triangles on (n+1)^2 vertices;
// - cylinder: 2n triangles for the side, n for each cap;
// - cone: n triangles for the side, n for the bottom.
// Texture coordinates follow the VRML primitives once the shape stands on
// the y axis: s runs once around, starting at the back; t runs up.
#ifndef OP_TESS_PARA_SURFACE_ACTION_H
#define OP_TESS_PARA_SURFACE_ACTION_H

#include "opTessellateAction.h"

constexpr int kOpMinSampling = 3;
constexpr int kOpMaxSampling = 512;

class opTessParaSurfaceAction : public opTessellateAction {
    CS_DECLARE_CLASS_TYPE;

    opTessParaSurfaceAction() = default;

    void setSampling(int samples) { _sampling = samples; }
    int getSampling() const { return _sampling; }
    // The sampling that geometry is made with.
    int getEffectiveSampling() const;

protected:
    ~opTessParaSurfaceAction() override = default;
    bool tessellate(opRep* rep) override;

private:
    int _sampling = 15;
};

#endif
