// Normals that the loader makes for faces that come without them: flat per
// face, then smoothed at each point across the faces that meet there within
// the crease angle. Shared by the indexed face set and the faces the loader
// makes itself from grids and sweeps.
#ifndef OPT_NORMALS_H
#define OPT_NORMALS_H

#include <vector>

#include "csFields.h"
#include "csVec.h"

// One normal per corner of `list`, a -1 terminated list of indexes into the
// `pointCount` points at `point`. Corners are numbered from 0 in processing
// order (from the end when `reverse`, a trailing -1 set aside), and corner
// c gets its normal at place c of `normals` and c at place c of `indexes`,
// both growing as needed. An index that names no point is reported on the
// error stream and taken as the first point (below -1) or the last. A face
// without three corners off one line keeps whatever its places held.
void optGenerateNormals(const std::vector<int>& list, bool reverse, const csVec3f* point, int pointCount,
                        float creaseAngle, csMFVec3f& normals, csMFInt& indexes);

#endif
