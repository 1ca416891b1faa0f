// Faces that the loader makes itself, from a grid of heights or a swept
// cross-section: laid down face by face in the winding they are to show,
// then compiled into a csIndexedFaceSet as an indexed face set would be.
// Index lists grow once to their known size; nothing is allocated per
// corner.
#ifndef OPT_FACE_BUILDER_H
#define OPT_FACE_BUILDER_H

#include <vector>

class csIndexSet;
class csIndexedFaceSet;

class optFaceBuilder {
public:
    // With `counterClockwise` false every face is laid down in reverse, so
    // that its other side shows. `corners` is the room to reserve.
    optFaceBuilder(bool counterClockwise, long long corners);

    // One face of `count` corners.
    void face(const int* corners, int count);
    void quad(int a, int b, int c, int d) {
        const int corners[4] = {a, b, c, d};
        face(corners, 4);
    }

    // The faces as a -1 terminated list.
    const std::vector<int>& list() const { return faces; }
    int cornerCount() const { return corners; }
    int faceCount() const { return count; }

    // A new index set of the corners, terminators left out.
    csIndexSet* makeIndexSet() const;
    // Makes the faces those of `geometry`: coordinate index set, face
    // lengths and face count.
    void compileFaces(csIndexedFaceSet& geometry) const;
    // Generated normals for `geometry`, whose coordinates must be set: one
    // per corner, smoothed within `creaseAngle`, bound per vertex.
    void generateNormals(csIndexedFaceSet& geometry, float creaseAngle) const;

private:
    bool reverse;
    std::vector<int> faces;
    int corners = 0;
    int count = 0;
};

#endif
