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

inline constexpr const char* kUnnamedElevationGrid = "Unnamed ElevationGrid Node";
inline constexpr const char* kUnnamedExtrusion = "Unnamed Extrusion Node";

// znMessage, with the name, the number of heights, the two dimensions and
// the rows built, for an ElevationGrid given fewer heights than points.
inline constexpr const char* kGridShortOfHeights =
    "optElevationGrid:  %s has %d heights for %d x %d points; only its first %d rows are built.";
// znMessage, with the name and the two dimensions, for an ElevationGrid
// whose squares would have more corners than can be numbered.
inline constexpr const char* kGridTooLarge = "optElevationGrid:  %s is too large to build (%d x %d points).";
// znMessage, with the name, what falls short ("colours", "normals",
// "texture coordinates"), how many there are and how many are needed, for
// an ElevationGrid whose node of them has too few.
inline constexpr const char* kGridShortOfValues = "optElevationGrid:  %s has %d %s for %d; they are left out.";
// znMessage, with the name, the spine and the cross-section points, for an
// Extrusion whose surface would have more corners than can be numbered.
inline constexpr const char* kSweepTooLarge =
    "optExtrusion:  %s is too large to build (%d spine by %d cross-section points).";
// What the memory limit refuses: an Extrusion (its name, the spine and the
// cross-section points), a picture (the texture's name, the width, height
// and components).
inline constexpr const char* kSweepOverLimit = "Extrusion %s (%d spine by %d cross-section points)";
inline constexpr const char* kPictureOverLimit = "The picture of %s (%d x %d, %d components)";
// znMessage, with the name, width, height, components and number of pixels,
// for a PixelTexture whose image has more than four components or fewer
// pixels than places.
inline constexpr const char* kPixelImageBroken =
    "optPixelTexture:  The image of %s (%d x %d, %d components, %d pixels) cannot be shown; it is left out.";
// znMessage, once per world, for the first MovieTexture.
inline constexpr const char* kMoviesNotDecoded =
    "optMovieTexture:  Movies are not decoded: a MovieTexture shows no picture.";

// znMessage, for each URL of an ImageTexture that gives no image.
inline constexpr const char* kTextureCantOpen = "optImageTexture:  Can't open %s!";

#endif
