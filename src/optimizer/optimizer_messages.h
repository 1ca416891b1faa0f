// Every text that the scene-graph back-end prints.
#ifndef OPTIMIZER_MESSAGES_H
#define OPTIMIZER_MESSAGES_H

// Alert, with the node's name, for a geometry that has no coordinate node.
inline constexpr const char* kGeometryHasNoCoordinates = "Geometry %s has no coordinates.";
// Standard error, followed by the index and an end of line, for a
// coordinate index that names no point while normals are generated.
inline constexpr const char* kInvalidIndex = "Invalid index: ";

// The scene-graph names of back-end objects whose node has no name.
inline constexpr const char* kUnnamedIndexedFaceSet = "Unnamed IndexedFaceSet Node";
inline constexpr const char* kUnnamedIndexedLineSet = "Unnamed IndexedLineSet Node";
inline constexpr const char* kUnnamedPointSet = "Unnamed PointSet Node";
inline constexpr const char* kUnnamedBox = "Unnamed Box Node";
inline constexpr const char* kUnnamedCone = "Unnamed Cone Node";
inline constexpr const char* kUnnamedCylinder = "Unnamed Cylinder Node";
inline constexpr const char* kUnnamedSphere = "Unnamed Sphere Node";

// znMessage, for each URL of an ImageTexture that gives no image.
inline constexpr const char* kTextureCantOpen = "optImageTexture:  Can't open %s!";

#endif
