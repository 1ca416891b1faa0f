// The "%sInitialize" functions of the built-in node types. The compiled-script
// interface finds them by name among the loaded symbols; each makes the
// class of its name for one node and answers it as that node's script.
#ifndef BUILTIN_INITIALIZERS_H
#define BUILTIN_INITIALIZERS_H

class Script;
class znInternal;

#define WRL_BUILTIN_TYPES(X)                                                                    \
    X(Appearance) X(Box) X(Color) X(Cone) X(Collision) X(Coordinate) X(Cylinder) X(FontStyle) \
    X(Group) X(ImageTexture) X(IndexedFaceSet) X(IndexedLineSet) X(Material) X(Normal)        \
    X(PointSet) X(Shape) X(Sphere) X(Switch) X(Text) X(TextureCoordinate) X(TextureTransform) \
    X(Transform)

extern "C" {
#define WRL_DECLARE_INITIALIZER(Type) Script* Type##Initialize(znInternal* pair);
WRL_BUILTIN_TYPES(WRL_DECLARE_INITIALIZER)
#undef WRL_DECLARE_INITIALIZER
}

#endif
