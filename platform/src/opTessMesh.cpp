#include "opTessMesh.h"

#include "csIndexedFaceSet.h"

void opTessMesh::reserve(int vertices, int indices, int faces) {
    _points.reserve(static_cast<size_t>(vertices));
    _normals.reserve(static_cast<size_t>(vertices));
    _texCoords.reserve(static_cast<size_t>(vertices));
    _indices.reserve(static_cast<size_t>(indices));
    _faceLengths.reserve(static_cast<size_t>(faces));
}

int opTessMesh::addVertex(const csVec3f& point, const csVec3f& normal, const csVec2f& texCoord) {
    _points.push_back(point);
    _normals.push_back(normal);
    _texCoords.push_back(texCoord);
    return static_cast<int>(_points.size()) - 1;
}

void opTessMesh::addTriangle(int a, int b, int c) {
    _indices.insert(_indices.end(), {a, b, c});
    _faceLengths.push_back(3);
}

void opTessMesh::addQuad(int a, int b, int c, int d) {
    _indices.insert(_indices.end(), {a, b, c, d});
    _faceLengths.push_back(4);
}

csIndexedFaceSet* opTessMesh::build() const {
    auto count = [](const auto& v) { return static_cast<int>(v.size()); };
    auto* coords = new csCoordSet3f();
    coords->point().setRange(0, count(_points), _points.data());
    auto* normals = new csNormalSet3f();
    normals->vector().setRange(0, count(_normals), _normals.data());
    auto* texCoords = new csTexCoordSet2f();
    texCoords->point().setRange(0, count(_texCoords), _texCoords.data());
    auto* index = new csIndexSet();
    index->index().setRange(0, count(_indices), _indices.data());

    auto* faces = new csIndexedFaceSet();
    faces->faceLength().setRange(0, count(_faceLengths), _faceLengths.data());
    faces->setPrimCount(count(_faceLengths));
    faces->setCoordSet(coords);
    faces->setNormalSet(normals);
    faces->setTexCoordSet(texCoords);
    faces->setCoordIndexSet(index);
    faces->setNormalIndexSet(index);
    faces->setTexCoordIndexSet(index);
    faces->setNormalBind(csGeoSet::PER_VERTEX);
    faces->setTexCoordBind(csGeoSet::TEX_COORD_PER_VERTEX);
    faces->setNormalPerVertex(1);
    return faces;
}
