// Polygons by index: the face length list gives the corners of each face in
// turn, and the index sets name them.
#ifndef CS_INDEXED_FACE_SET_H
#define CS_INDEXED_FACE_SET_H

#include <cstdint>

#include "csGeoSet.h"

class csIndexedFaceSet : public csGeoSet {
    CS_DECLARE_CLASS_TYPE;

    csIndexedFaceSet() = default;

    // One entry per face: its number of corners.
    csMFInt& faceLength() { return _faceLength; }
    const csMFInt& faceLength() const { return _faceLength; }

    void setColorPerVertex(std::uint8_t on) { _colorPerVertex = on != 0; }
    bool getColorPerVertex() const { return _colorPerVertex; }
    void setNormalPerVertex(std::uint8_t on) { _normalPerVertex = on != 0; }
    bool getNormalPerVertex() const { return _normalPerVertex; }
    void setSolid(std::uint8_t on) { _solid = on != 0; }
    bool getSolid() const { return _solid; }
    void setConvex(std::uint8_t on) { _convex = on != 0; }
    bool getConvex() const { return _convex; }

protected:
    ~csIndexedFaceSet() override = default;

private:
    csMFInt _faceLength;
    bool _colorPerVertex = true;
    bool _normalPerVertex = true;
    bool _solid = true;
    bool _convex = true;
};

#endif
