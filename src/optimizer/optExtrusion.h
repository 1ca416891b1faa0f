// The back-end of Extrusion: one csIndexedFaceSet of the swept surface.
// At each spine point the cross-section is scaled, turned by the point's
// orientation and set into the spine-aligned cross-section plane; a
// quadrilateral joins each pair of neighbouring points of neighbouring
// copies, and caps close the ends of an open spine. A closed cross-section
// or spine shares its seam points, so that smoothing runs across the seam.
// Texture coordinates follow the lengths along cross-section and spine.
// Built at the first fetch, and built anew after any change.
#ifndef OPT_EXTRUSION_H
#define OPT_EXTRUSION_H

#include "csIndexedFaceSet.h"
#include "csRefPtr.h"
#include "vrmlnodes/Extrusion.h"

class optExtrusion : public Extrusion {
public:
    explicit optExtrusion(znInternal* pair);
    ~optExtrusion() override = default;
    // Answers the geometry's handle.
    int action(SFTime& time, int mode, void* state) override;

    csIndexedFaceSet* getGeometry() const { return geometry.get(); }

private:
    void build();

    csRefPtr<csIndexedFaceSet> geometry;
};

#endif
