// The class-init list of the back-end: the "%sInitialize" function of each
// built-in node type. The compiled-script interface finds them by name
// among the loaded symbols; each makes the back-end class of its type for
// one node, introduces it to the graphics interface, and answers it as that
// node's script.
#ifndef OPT_BUILTINS_H
#define OPT_BUILTINS_H

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
