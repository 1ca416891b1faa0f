#include "vrmlnodes/builtin_initializers.h"

#include <new>

#include "vrmlnodes/Anchor.h"
#include "vrmlnodes/Appearance.h"
#include "vrmlnodes/Background.h"
#include "vrmlnodes/Billboard.h"
#include "vrmlnodes/Box.h"
#include "vrmlnodes/Collision.h"
#include "vrmlnodes/Color.h"
#include "vrmlnodes/Cone.h"
#include "vrmlnodes/Coordinate.h"
#include "vrmlnodes/Cylinder.h"
#include "vrmlnodes/DirectionalLight.h"
#include "vrmlnodes/ElevationGrid.h"
#include "vrmlnodes/Extrusion.h"
#include "vrmlnodes/Fog.h"
#include "vrmlnodes/FontStyle.h"
#include "vrmlnodes/Group.h"
#include "vrmlnodes/ImageTexture.h"
#include "vrmlnodes/IndexedFaceSet.h"
#include "vrmlnodes/IndexedLineSet.h"
#include "vrmlnodes/Inline.h"
#include "vrmlnodes/LOD.h"
#include "vrmlnodes/Material.h"
#include "vrmlnodes/MovieTexture.h"
#include "vrmlnodes/NavigationInfo.h"
#include "vrmlnodes/Normal.h"
#include "vrmlnodes/PixelTexture.h"
#include "vrmlnodes/PointLight.h"
#include "vrmlnodes/PointSet.h"
#include "vrmlnodes/Shape.h"
#include "vrmlnodes/Sphere.h"
#include "vrmlnodes/SpotLight.h"
#include "vrmlnodes/Switch.h"
#include "vrmlnodes/Text.h"
#include "vrmlnodes/TextureCoordinate.h"
#include "vrmlnodes/TextureTransform.h"
#include "vrmlnodes/Transform.h"
#include "vrmlnodes/Viewpoint.h"
#include "vrmlnodes/WorldInfo.h"
#include "optimizer/optAnchor.h"
#include "optimizer/optAppearance.h"
#include "optimizer/optBackground.h"
#include "optimizer/optBillboard.h"
#include "optimizer/optBox.h"
#include "optimizer/optCollision.h"
#include "optimizer/optColor.h"
#include "optimizer/optCone.h"
#include "optimizer/optCoordinate.h"
#include "optimizer/optCylinder.h"
#include "optimizer/optDirectionalLight.h"
#include "optimizer/optElevationGrid.h"
#include "optimizer/optExtrusion.h"
#include "optimizer/optFog.h"
#include "optimizer/optFontStyle.h"
#include "optimizer/optGroup.h"
#include "optimizer/optImageTexture.h"
#include "optimizer/optIndexedFaceSet.h"
#include "optimizer/optIndexedLineSet.h"
#include "optimizer/optInline.h"
#include "optimizer/optLOD.h"
#include "optimizer/optMaterial.h"
#include "optimizer/optMovieTexture.h"
#include "optimizer/optNavigationInfo.h"
#include "optimizer/optNormal.h"
#include "optimizer/optPixelTexture.h"
#include "optimizer/optPointLight.h"
#include "optimizer/optPointSet.h"
#include "optimizer/optShape.h"
#include "optimizer/optSphere.h"
#include "optimizer/optSpotLight.h"
#include "optimizer/optSwitch.h"
#include "optimizer/optText.h"
#include "optimizer/optTextureCoordinate.h"
#include "optimizer/optTextureTransform.h"
#include "optimizer/optTransform.h"
#include "optimizer/optViewpoint.h"
#include "optimizer/optWorldInfo.h"

namespace {

// The VRML-level class made concrete until its back-end class exists: the
// node stores values and keeps its children, and a fetch answers no
// scene-graph object. This is the one place that decides so.
template <class T>
class VRMLLevel final : public T {
public:
    explicit VRMLLevel(znInternal* pair) : BaseNode(pair), T(pair) {}
    int action(SFTime&, int mode, void*) override {
        if (mode == kActionFetch) this->built = 1;
        return 0;
    }
};

// The class that a type's Initialize makes: its back-end class where one
// exists, else the stand-in.
template <class T>
struct BackEnd {
    using type = VRMLLevel<T>;
};
template <> struct BackEnd<Appearance> { using type = optAppearance; };
template <> struct BackEnd<Collision> { using type = optCollision; };
template <> struct BackEnd<FontStyle> { using type = optFontStyle; };
template <> struct BackEnd<Group> { using type = optGroup; };
template <> struct BackEnd<ImageTexture> { using type = optImageTexture; };
template <> struct BackEnd<Material> { using type = optMaterial; };
template <> struct BackEnd<Shape> { using type = optShape; };
template <> struct BackEnd<Switch> { using type = optSwitch; };
template <> struct BackEnd<Text> { using type = optText; };
template <> struct BackEnd<TextureTransform> { using type = optTextureTransform; };
template <> struct BackEnd<Transform> { using type = optTransform; };
template <> struct BackEnd<Color> { using type = optColor; };
template <> struct BackEnd<Coordinate> { using type = optCoordinate; };
template <> struct BackEnd<IndexedFaceSet> { using type = optIndexedFaceSet; };
template <> struct BackEnd<Normal> { using type = optNormal; };
template <> struct BackEnd<TextureCoordinate> { using type = optTextureCoordinate; };
template <> struct BackEnd<IndexedLineSet> { using type = optIndexedLineSet; };
template <> struct BackEnd<PointSet> { using type = optPointSet; };
template <> struct BackEnd<Box> { using type = optBox; };
template <> struct BackEnd<Cone> { using type = optCone; };
template <> struct BackEnd<Cylinder> { using type = optCylinder; };
template <> struct BackEnd<Sphere> { using type = optSphere; };
template <> struct BackEnd<Anchor> { using type = optAnchor; };
template <> struct BackEnd<Background> { using type = optBackground; };
template <> struct BackEnd<Billboard> { using type = optBillboard; };
template <> struct BackEnd<DirectionalLight> { using type = optDirectionalLight; };
template <> struct BackEnd<ElevationGrid> { using type = optElevationGrid; };
template <> struct BackEnd<Extrusion> { using type = optExtrusion; };
template <> struct BackEnd<Fog> { using type = optFog; };
template <> struct BackEnd<Inline> { using type = optInline; };
template <> struct BackEnd<LOD> { using type = optLOD; };
template <> struct BackEnd<MovieTexture> { using type = optMovieTexture; };
template <> struct BackEnd<NavigationInfo> { using type = optNavigationInfo; };
template <> struct BackEnd<PixelTexture> { using type = optPixelTexture; };
template <> struct BackEnd<PointLight> { using type = optPointLight; };
template <> struct BackEnd<SpotLight> { using type = optSpotLight; };
template <> struct BackEnd<Viewpoint> { using type = optViewpoint; };
template <> struct BackEnd<WorldInfo> { using type = optWorldInfo; };

template <class T>
using BackEndOf = typename BackEnd<T>::type;

}  // namespace

extern "C" {
#define WRL_DEFINE_INITIALIZER(Type)                                     \
    Script* Type##Initialize(znInternal* pair) {                        \
        return static_cast<Script*>(new (std::nothrow) BackEndOf<Type>(pair)); \
    }
WRL_BUILTIN_TYPES(WRL_DEFINE_INITIALIZER)
#undef WRL_DEFINE_INITIALIZER
}
