// Polygons of a face set as triangles.
#ifndef WRL_POLYGON_TRIANGULATION_H
#define WRL_POLYGON_TRIANGULATION_H

#include <array>
#include <vector>

#include "csVec.h"

// The unit normal of a polygon by Newell's rule, which takes every corner
// into account, so that collinear first corners do not matter; (0, 0, 1)
// for a polygon without area.
csVec3f polygonNormal(const std::vector<csVec3f>& corners);

// Triangles over the corners, as corner numbers, each wound as the polygon
// is about `normal`. A convex polygon is fanned from its first corner; any
// other is cut ear by ear in the plane across `normal`, and what cannot be
// cut so (a polygon that crosses itself, or one of hundreds of corners) is
// fanned.
std::vector<std::array<int, 3>> triangulatePolygon(const std::vector<csVec3f>& corners, const csVec3f& normal,
                                                   bool convex);

#endif
