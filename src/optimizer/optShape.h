// The back-end of Shape: where appearance and geometry meet. Builds the
// shape with its appearance (a default one when the node has none),
// tessellates parametric primitives, turns the toolkit's primitives upright
// for VRML, hangs a top-level shape under the scene root, and on later
// passes lets a navigating display follow the terrain.
#ifndef OPT_SHAPE_H
#define OPT_SHAPE_H

#include "csRefPtr.h"
#include "vrmlnodes/Shape.h"

class csAppearance;
class csGroup;
class csMaterial;
class csObject;
class csShape;
class csTransform;
class opTessCuboidAction;
class opTessParaSurfaceAction;

class optShape : public Shape {
public:
    explicit optShape(znInternal* pair);
    ~optShape() override;
    // Answers the axis transform, under which the shape stands.
    int action(SFTime& time, int mode, void* state) override;

    csTransform* getAxisTransform() const { return axisTransform.get(); }
    csShape* getShape() const { return shape.get(); }
    csGroup* getTopGroup() const { return topGroup.get(); }

    // The sampling of parametric surfaces for a TESS_QUALITY text: the
    // integer part of quality / 5 x 15, 15 when the text is null. Not held
    // to any range; only made safe to convert (NaN gives 0).
    static int samplingFor(const char* quality);

private:
    void buildAppearance(SFTime& time);
    void buildGeometry(SFTime& time);
    // Tessellates a parametric shape that holds no geometry yet.
    void tessellate(csShape* target);
    void lightColouredFaces();
    bool appearanceHasMaterial() const;
    void setUpAxisConversion();
    void followTerrain();

    // Each member holds one reference of its own.
    // An opRep in practice: of the shape's own, or an instance of the
    // primitive that the geometry node answered. Null when the geometry was
    // of no use.
    csRefPtr<csShape> shape;
    csRefPtr<csAppearance> appearance;
    csRefPtr<csMaterial> material;     // the default material, when one was made
    csRefPtr<csObject> geometry;       // a csGeometry or an opRep from the geometry node
    csRefPtr<csTransform> axisTransform;
    csRefPtr<csGroup> topGroup;        // only for a top-level shape
    csRefPtr<opTessParaSurfaceAction> surfaceTessellator;
    csRefPtr<opTessCuboidAction> cuboidTessellator;
    ActionState* state = nullptr;      // owning; made at the first action
};

#endif
