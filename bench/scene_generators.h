// Generated VRML 97 worlds of a chosen size, for the load benchmarks.
#ifndef WRL_BENCH_SCENE_GENERATORS_H
#define WRL_BENCH_SCENE_GENERATORS_H

#include <cstddef>
#include <string>

namespace wrlbench {

// One IndexedFaceSet: a grid of quads with coordinates, per-vertex normals
// and texture coordinates. With `withNormals` false the Normal node is left
// out and a creaseAngle of 0.5 is given, so the loader generates normals.
// With `inShape` false the face set stands alone at the top, DEF'd as F, so
// that loading leaves it unbuilt until someone fetches it.
std::string bigFaceSet(std::size_t targetBytes, bool withNormals, bool inShape = true);

// Many small shapes: a few DEF'd appearances and geometries, then one
// Transform per shape that USEs them.
std::string manyDefUseShapes(std::size_t targetBytes);

// One small PROTO with IS-connected fields, instanced until the file has
// the target size.
std::string manyProtoInstances(std::size_t targetBytes);

// One ElevationGrid of `side` x `side` heights, DEF'd as F at the top of the
// world, with a crease angle so that smoothing has work to do.
std::string bigElevationGrid(long side);

// One Extrusion, DEF'd as F at the top of the world: a circle of
// `sectionPoints` swept along a helix of `spinePoints`, with a crease angle.
std::string longExtrusion(long spinePoints, long sectionPoints);

// Worlds that a careless or hostile writer makes, each of which once cost
// far more than its size: a fan of `triangles` triangles that all share one
// point, in one IndexedFaceSet whose normals are generated; one comment of
// `bytes` on a single line before a Shape; a PROTO instance whose body
// holds two instances of the PROTO below it, `levels` deep (2^levels
// Shapes).
std::string triangleFan(long triangles);
std::string longComment(std::size_t bytes);
std::string nestedProtos(int levels);
// `nodes` DEF'd Transforms, each the target of a ROUTE from the one before,
// and a Script with an interface of its own for every tenth of them.
std::string routedNodes(long nodes);

// Writes `text` to a file in the temporary directory and answers its path.
std::string writeTempWorld(const std::string& stem, const std::string& text);

}  // namespace wrlbench

#endif
