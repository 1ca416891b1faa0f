// The "%sInitialize" functions of the built-in node types. The compiled-script
// interface finds them by name among the loaded symbols; each makes the
// class of its name for one node and answers it as that node's script.
#ifndef BUILTIN_INITIALIZERS_H
#define BUILTIN_INITIALIZERS_H

class Script;
class znInternal;

#define WRL_BUILTIN_TYPES(X)                                                                    \
    X(Anchor) X(Appearance) X(Background) X(Billboard) X(Box) X(Color) X(Cone) X(Collision)   \
    X(Coordinate) X(Cylinder) X(DirectionalLight) X(ElevationGrid) X(Extrusion) X(Fog)        \
    X(FontStyle) X(Group) X(ImageTexture) X(IndexedFaceSet) X(IndexedLineSet) X(Inline) X(LOD) \
    X(Material) X(MovieTexture) X(NavigationInfo) X(Normal) X(PixelTexture) X(PointLight)     \
    X(PointSet) X(Shape) X(Sphere) X(SpotLight) X(Switch) X(Text) X(TextureCoordinate)        \
    X(TextureTransform) X(Transform) X(Viewpoint) X(WorldInfo)

extern "C" {
#define WRL_DECLARE_INITIALIZER(Type) Script* Type##Initialize(znInternal* pair);
WRL_BUILTIN_TYPES(WRL_DECLARE_INITIALIZER)
#undef WRL_DECLARE_INITIALIZER
}

#endif
