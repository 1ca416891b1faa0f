#include "csMatrix4f.h"

#include <cmath>
#include <cstring>
#include <utility>

void csMatrix4f::makeIdent() {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) mat[r][c] = r == c ? 1.0f : 0.0f;
}

void csMatrix4f::makeTrans(float x, float y, float z) {
    makeIdent();
    mat[3][0] = x;
    mat[3][1] = y;
    mat[3][2] = z;
}

void csMatrix4f::makeScale(float x, float y, float z) {
    makeIdent();
    mat[0][0] = x;
    mat[1][1] = y;
    mat[2][2] = z;
}

void csMatrix4f::makeRot(float x, float y, float z, float angle) {
    makeIdent();
    float len = std::sqrt(x * x + y * y + z * z);
    if (len == 0.0f) return;
    x /= len;
    y /= len;
    z /= len;
    float c = std::cos(angle), s = std::sin(angle), t = 1.0f - c;
    mat[0][0] = x * x * t + c;
    mat[0][1] = x * y * t + z * s;
    mat[0][2] = x * z * t - y * s;
    mat[1][0] = x * y * t - z * s;
    mat[1][1] = y * y * t + c;
    mat[1][2] = y * z * t + x * s;
    mat[2][0] = x * z * t + y * s;
    mat[2][1] = y * z * t - x * s;
    mat[2][2] = z * z * t + c;
}

void csMatrix4f::mult(const csMatrix4f& a, const csMatrix4f& b) {
    float r[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            r[i][j] = a.mat[i][0] * b.mat[0][j] + a.mat[i][1] * b.mat[1][j] + a.mat[i][2] * b.mat[2][j] +
                      a.mat[i][3] * b.mat[3][j];
    std::memcpy(mat, r, sizeof mat);
}

void csMatrix4f::preMult(const csMatrix4f& m) { mult(m, *this); }

void csMatrix4f::postMult(const csMatrix4f& m) { mult(*this, m); }

void csMatrix4f::preTrans(float x, float y, float z, const csMatrix4f& m) {
    csMatrix4f t;
    t.makeTrans(x, y, z);
    mult(t, m);
}

void csMatrix4f::preScale(float x, float y, float z, const csMatrix4f& m) {
    csMatrix4f s;
    s.makeScale(x, y, z);
    mult(s, m);
}

void csMatrix4f::preRot(float x, float y, float z, float angle, const csMatrix4f& m) {
    csMatrix4f r;
    r.makeRot(x, y, z, angle);
    mult(r, m);
}

void csMatrix4f::postTrans(const csMatrix4f& m, float x, float y, float z) {
    csMatrix4f t;
    t.makeTrans(x, y, z);
    mult(m, t);
}

void csMatrix4f::postScale(const csMatrix4f& m, float x, float y, float z) {
    csMatrix4f s;
    s.makeScale(x, y, z);
    mult(m, s);
}

void csMatrix4f::postRot(const csMatrix4f& m, float x, float y, float z, float angle) {
    csMatrix4f r;
    r.makeRot(x, y, z, angle);
    mult(m, r);
}

bool csMatrix4f::invert(const csMatrix4f& m) {
    // Gauss-Jordan with partial pivoting, in double precision.
    double a[4][8];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) {
            a[r][c] = m.mat[r][c];
            a[r][c + 4] = r == c ? 1.0 : 0.0;
        }
    for (int col = 0; col < 4; ++col) {
        int pivot = col;
        for (int r = col + 1; r < 4; ++r)
            if (std::fabs(a[r][col]) > std::fabs(a[pivot][col])) pivot = r;
        if (std::fabs(a[pivot][col]) < 1e-12) return false;
        if (pivot != col)
            for (int c = 0; c < 8; ++c) std::swap(a[pivot][c], a[col][c]);
        double d = a[col][col];
        for (int c = 0; c < 8; ++c) a[col][c] /= d;
        for (int r = 0; r < 4; ++r) {
            if (r == col) continue;
            double f = a[r][col];
            for (int c = 0; c < 8; ++c) a[r][c] -= f * a[col][c];
        }
    }
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) mat[r][c] = static_cast<float>(a[r][c + 4]);
    return true;
}

csVec3f csMatrix4f::xformPt(const csVec3f& p) const {
    csVec3f v = xformVec(p);
    return csVec3f(v[0] + mat[3][0], v[1] + mat[3][1], v[2] + mat[3][2]);
}

csVec3f csMatrix4f::xformVec(const csVec3f& v) const {
    return csVec3f(v[0] * mat[0][0] + v[1] * mat[1][0] + v[2] * mat[2][0],
                   v[0] * mat[0][1] + v[1] * mat[1][1] + v[2] * mat[2][1],
                   v[0] * mat[0][2] + v[1] * mat[1][2] + v[2] * mat[2][2]);
}

bool csMatrix4f::almostEqual(const csMatrix4f& o, float tolerance) const {
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (std::fabs(mat[r][c] - o.mat[r][c]) > tolerance) return false;
    return true;
}

bool csMatrix4f::operator==(const csMatrix4f& o) const { return std::memcmp(mat, o.mat, sizeof mat) == 0; }
