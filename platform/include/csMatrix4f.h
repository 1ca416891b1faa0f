// A 4x4 matrix that acts on row vectors: a point p becomes p * M, and the
// translation stands in row 3.
#ifndef CS_MATRIX4F_H
#define CS_MATRIX4F_H

#include "csVec.h"

class csMatrix4f {
public:
    csMatrix4f() { makeIdent(); }

    void makeIdent();
    void makeTrans(float x, float y, float z);
    void makeScale(float x, float y, float z);
    // Rotation by `angle` radians about the axis (x, y, z), counter-clockwise
    // when the axis points at the viewer. A zero axis gives the identity.
    void makeRot(float x, float y, float z, float angle);

    float* operator[](int row) { return mat[row]; }
    const float* operator[](int row) const { return mat[row]; }
    void set(int row, int col, float value) { mat[row][col] = value; }
    float get(int row, int col) const { return mat[row][col]; }

    // this = a * b; either may be this matrix.
    void mult(const csMatrix4f& a, const csMatrix4f& b);
    // this = m * this: m acts first on a point.
    void preMult(const csMatrix4f& m);
    // this = this * m: m acts last on a point.
    void postMult(const csMatrix4f& m);
    // this = T(x, y, z) * m, and the like for scale and rotation.
    void preTrans(float x, float y, float z, const csMatrix4f& m);
    void preScale(float x, float y, float z, const csMatrix4f& m);
    void preRot(float x, float y, float z, float angle, const csMatrix4f& m);
    // this = m * T(x, y, z), and the like.
    void postTrans(const csMatrix4f& m, float x, float y, float z);
    void postScale(const csMatrix4f& m, float x, float y, float z);
    void postRot(const csMatrix4f& m, float x, float y, float z, float angle);
    // General inverse of m; false, leaving this matrix alone, when m is
    // singular.
    bool invert(const csMatrix4f& m);

    csVec3f xformPt(const csVec3f& p) const;   // p * M with w = 1
    csVec3f xformVec(const csVec3f& v) const;  // v * M, translation ignored

    bool almostEqual(const csMatrix4f& o, float tolerance) const;
    bool operator==(const csMatrix4f& o) const;

    float mat[4][4];
};

#endif
