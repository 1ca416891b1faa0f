// Collects vertices and faces of a tessellation and turns them into one
// csIndexedFaceSet.
#ifndef OP_TESS_MESH_H
#define OP_TESS_MESH_H

#include <vector>

#include "csVec.h"

class csIndexedFaceSet;

class opTessMesh {
public:
    void reserve(int vertices, int indices, int faces);
    // Answers the vertex number.
    int addVertex(const csVec3f& point, const csVec3f& normal, const csVec2f& texCoord);
    // Corners in counter-clockwise order seen from outside.
    void addTriangle(int a, int b, int c);
    void addQuad(int a, int b, int c, int d);
    // A new face set (count 0) with coordinates, normals and texture
    // coordinates bound per vertex through one index set.
    csIndexedFaceSet* build() const;

private:
    std::vector<csVec3f> _points;
    std::vector<csVec3f> _normals;
    std::vector<csVec2f> _texCoords;
    std::vector<int> _indices;
    std::vector<int> _faceLengths;
};

#endif
