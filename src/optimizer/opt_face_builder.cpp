#include "optimizer/opt_face_builder.h"

#include "csIndexedFaceSet.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/opt_normals.h"

optFaceBuilder::optFaceBuilder(bool counterClockwise, long long reserve) : reverse(!counterClockwise) {
    if (reserve > 0) faces.reserve(static_cast<size_t>(reserve));
}

void optFaceBuilder::face(const int* first, int length) {
    for (int i = 0; i < length; ++i) faces.push_back(first[reverse ? length - 1 - i : i]);
    faces.push_back(kOptTerminator);
    corners += length;
    ++count;
}

csIndexSet* optFaceBuilder::makeIndexSet() const {
    auto* set = new csIndexSet(corners);
    csMFInt& out = set->index();
    int next = 0;
    for (int e : faces)
        if (e != kOptTerminator) out.set(next++, e);
    return set;
}

void optFaceBuilder::compileFaces(csIndexedFaceSet& geometry) const {
    auto* set = new csIndexSet(corners);
    optPackIndexes(faces, false, set->index(), geometry.faceLength());
    geometry.setCoordIndexSet(set);
    geometry.setPrimCount(count);
}

void optFaceBuilder::generateNormals(csIndexedFaceSet& geometry, float creaseAngle) const {
    const csCoordSet3f* coords = geometry.getCoordSet();
    auto* normals = new csNormalSet3f(corners);
    auto* indexes = new csIndexSet(corners);
    optGenerateNormals(faces, false, coords ? coords->point().getData() : nullptr, coords ? coords->getCount() : 0,
                       creaseAngle, normals->vector(), indexes->index());
    geometry.setNormalSet(normals);
    geometry.setNormalIndexSet(indexes);
    geometry.setNormalBind(csGeoSet::PER_VERTEX);
    geometry.setNormalPerVertex(1);
}
