#include "math/math_quaternion.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <utility>

#include "math/math_messages.h"

const float ml_idmat[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

namespace {

constexpr float kRigidTolerance = 0.0001f;
constexpr double kRightAngle = 1.5707963267948966;
constexpr double kPi = 3.141592653589793;
// Quaternions closer than this in 1 - cos are blended linearly.
constexpr double kSlerpLinear = 0.001;

// The eight products of ml_quatMult, kept process-wide as the interface
// says.
float quatScratch[8];

char unhomoBuffer[128];

void copyMat(float r[4][4], const float m[4][4]) {
    if (r != m) std::memmove(r, m, sizeof(float[4][4]));
}

}  // namespace

// ---- Vectors

float ml_vecNormalize(float r[3], const float v[3]) {
    float len = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    if (len > 0.0f) {
        r[0] = v[0] / len;
        r[1] = v[1] / len;
        r[2] = v[2] / len;
    } else {
        r[0] = r[1] = r[2] = 0.0f;
    }
    return len;
}

void ml_vecCrossproduct(float r[3], const float a[3], const float b[3]) {
    float x = a[1] * b[2] - a[2] * b[1];
    float y = a[2] * b[0] - a[0] * b[2];
    float z = a[0] * b[1] - a[1] * b[0];
    r[0] = x;
    r[1] = y;
    r[2] = z;
}

void ml_vecSub(float r[3], const float a[3], const float b[3]) {
    for (int i = 0; i < 3; ++i) r[i] = a[i] - b[i];
}

void ml_vecSub4(float r[4], const float a[4], const float b[4]) {
    for (int i = 0; i < 4; ++i) r[i] = a[i] - b[i];
}

void ml_vecAdd(float r[3], const float a[3], const float b[3]) {
    for (int i = 0; i < 3; ++i) r[i] = a[i] + b[i];
}

void ml_vecAdd4(float r[4], const float a[4], const float b[4]) {
    for (int i = 0; i < 4; ++i) r[i] = a[i] + b[i];
}

void ml_vecScalarmult(float r[3], float s, const float v[3]) {
    for (int i = 0; i < 3; ++i) r[i] = s * v[i];
}

float ml_vecUnitize(float v[3]) { return ml_vecNormalize(v, v); }

float ml_vecUnitize4(float v[4]) {
    float len = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2] + v[3] * v[3]);
    if (len > 0.0f)
        for (int i = 0; i < 4; ++i) v[i] /= len;
    return len;
}

void ml_vecInterp(float r[3], const float a[3], const float b[3], float t) {
    for (int i = 0; i < 3; ++i) r[i] = a[i] + t * (b[i] - a[i]);
}

void ml_vecRot(float r[3], const float v[3], const float axis[3], float angle) {
    float unit[3];
    if (ml_vecNormalize(unit, axis) == 0.0f) {
        if (r != v) std::memmove(r, v, sizeof(float[3]));
        return;
    }
    float m[4][4];
    ml_axisToMat(m, unit, angle);
    ml_vecMult0(r, v, m);
}

void ml_vecHomo(float r[3], const float a[3], const float b[3]) {
    ml_vecCrossproduct(r, a, b);
    ml_vecUnitize(r);
}

// ---- Vectors by matrices

void ml_vecMult(float r[3], const float v[3], const float m[4][4]) {
    float out[3];
    for (int j = 0; j < 3; ++j) out[j] = v[0] * m[0][j] + v[1] * m[1][j] + v[2] * m[2][j] + m[3][j];
    std::memcpy(r, out, sizeof out);
}

void ml_vecMult0(float r[3], const float v[3], const float m[4][4]) {
    float out[3];
    for (int j = 0; j < 3; ++j) out[j] = v[0] * m[0][j] + v[1] * m[1][j] + v[2] * m[2][j];
    std::memcpy(r, out, sizeof out);
}

void ml_vecMult4(float r[4], const float v[4], const float m[4][4]) {
    float out[4];
    for (int j = 0; j < 4; ++j) out[j] = v[0] * m[0][j] + v[1] * m[1][j] + v[2] * m[2][j] + v[3] * m[3][j];
    std::memcpy(r, out, sizeof out);
}

void ml_multVec(float r[3], const float m[4][4], const float v[3]) {
    float out[3];
    for (int i = 0; i < 3; ++i) out[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2] + m[i][3];
    std::memcpy(r, out, sizeof out);
}

void ml_multVec0(float r[3], const float m[4][4], const float v[3]) {
    float out[3];
    for (int i = 0; i < 3; ++i) out[i] = m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2];
    std::memcpy(r, out, sizeof out);
}

void ml_multVecMatmn(float* r, const float* v, const float* m, int rows, int cols) {
    if (r == nullptr || v == nullptr || m == nullptr || rows <= 0 || cols <= 0) return;
    for (int j = 0; j < cols; ++j) {
        float sum = 0.0f;
        for (int i = 0; i < rows; ++i) sum += v[i] * m[i * cols + j];
        r[j] = sum;
    }
}

void ml_scaleVecArray(float (*v)[3], int count, float s) {
    if (v == nullptr) return;
    for (int i = 0; i < count; ++i) ml_vecScalarmult(v[i], s, v[i]);
}

// ---- Matrices

void ml_matMult(float r[4][4], const float a[4][4], const float b[4][4]) {
    float out[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            out[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j] + a[i][3] * b[3][j];
    std::memcpy(r, out, sizeof out);
}

void ml_matTranslate(float m[4][4], const float t[3]) {
    float op[4][4];
    ml_transToMat(op, t);
    ml_matMult(m, op, m);
}

void ml_matRotate(float m[4][4], const float axis[3], float angle) {
    float unit[3];
    if (ml_vecNormalize(unit, axis) == 0.0f) return;
    float op[4][4];
    ml_axisToMat(op, unit, angle);
    ml_matMult(m, op, m);
}

void ml_matScale(float m[4][4], const float s[3]) {
    float op[4][4];
    ml_scaleToMat(op, s);
    ml_matMult(m, op, m);
}

int ml_matInvert(float r[4][4], const float m[4][4]) {
    // Gauss-Jordan elimination with partial pivoting, in double precision;
    // a pivot below 1e-12 is a singular matrix.
    double a[4][8];
    for (int row = 0; row < 4; ++row)
        for (int col = 0; col < 4; ++col) {
            a[row][col] = m[row][col];
            a[row][col + 4] = row == col ? 1.0 : 0.0;
        }
    for (int col = 0; col < 4; ++col) {
        int pivot = col;
        for (int row = col + 1; row < 4; ++row)
            if (std::fabs(a[row][col]) > std::fabs(a[pivot][col])) pivot = row;
        if (std::fabs(a[pivot][col]) < 1e-12) return 0;
        if (pivot != col) std::swap(a[pivot], a[col]);
        const double scale = a[col][col];
        for (double& value : a[col]) value /= scale;
        for (int row = 0; row < 4; ++row) {
            if (row == col) continue;
            const double factor = a[row][col];
            for (int c = 0; c < 8; ++c) a[row][c] -= factor * a[col][c];
        }
    }
    for (int row = 0; row < 4; ++row)
        for (int col = 0; col < 4; ++col) r[row][col] = static_cast<float>(a[row][col + 4]);
    return 1;
}

void ml_matMulthomo(float r[4][4], const float a[4][4], const float b[4][4]) {
    float out[4][4];
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 3; ++j) out[i][j] = a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j];
        out[i][3] = 0.0f;
    }
    for (int j = 0; j < 3; ++j) out[3][j] += b[3][j];
    out[3][3] = 1.0f;
    std::memcpy(r, out, sizeof out);
}

void ml_matInverthomo(float r[4][4], const float m[4][4]) {
    float out[4][4];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) out[i][j] = m[j][i];
        out[i][3] = 0.0f;
    }
    for (int j = 0; j < 3; ++j) out[3][j] = -(m[3][0] * out[0][j] + m[3][1] * out[1][j] + m[3][2] * out[2][j]);
    out[3][3] = 1.0f;
    std::memcpy(r, out, sizeof out);
}

void ml_matPrint(const float m[4][4]) {
    for (int i = 0; i < 4; ++i) std::printf(kMlMatRowFormat, m[i][0], m[i][1], m[i][2], m[i][3]);
}

int ml_matIsidrot(const float m[4][4]) {
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            if (std::fabs(m[i][j] - ml_idmat[i][j]) > kRigidTolerance) return 0;
    return 1;
}

void ml_matLinterp(float r[4][4], const float a[4][4], const float b[4][4], float t) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) r[i][j] = a[i][j] + t * (b[i][j] - a[i][j]);
}

// ---- Rigidity tests

const char* ml_matUnhomo(const float m[4][4]) {
    for (int i = 0; i < 3; ++i) {
        float len = std::sqrt(m[i][0] * m[i][0] + m[i][1] * m[i][1] + m[i][2] * m[i][2]);
        if (std::fabs(len - 1.0f) > kRigidTolerance) {
            std::snprintf(unhomoBuffer, sizeof unhomoBuffer, kMlAxisNotUnit, len);
            return unhomoBuffer;
        }
    }
    struct Pair {
        int a, b;
        const char* format;
    };
    const Pair pairs[3] = {{0, 1, kMlXyNotPerpendicular}, {1, 2, kMlYzNotPerpendicular}, {2, 0, kMlZxNotPerpendicular}};
    for (const Pair& p : pairs) {
        float dot = m[p.a][0] * m[p.b][0] + m[p.a][1] * m[p.b][1] + m[p.a][2] * m[p.b][2];
        if (std::fabs(dot) > kRigidTolerance) {
            std::snprintf(unhomoBuffer, sizeof unhomoBuffer, p.format, dot);
            return unhomoBuffer;
        }
    }
    return nullptr;
}

int ml_matIshomo(const float m[4][4]) { return ml_matUnhomo(m) == nullptr; }

void ml_matTesthomo(const float m[4][4], const char* label) {
    const char* why = ml_matUnhomo(m);
    if (why != nullptr) std::printf(kMlTesthomoFormat, label ? label : "", why);
}

// ---- Matrix makers

void ml_IDToMat(float m[4][4]) { std::memcpy(m, ml_idmat, sizeof ml_idmat); }

void ml_xyzToMat(float m[4][4], const float xyz[3]) {
    const float x[3] = {1, 0, 0}, y[3] = {0, 1, 0}, z[3] = {0, 0, 1};
    float angles[3] = {xyz[0], xyz[1], xyz[2]};
    float rx[4][4], ry[4][4], rz[4][4];
    ml_axisToMat(rx, x, angles[0]);
    ml_axisToMat(ry, y, angles[1]);
    ml_axisToMat(rz, z, angles[2]);
    ml_matMult(m, rx, ry);
    ml_matMult(m, m, rz);
}

void ml_transToMat(float m[4][4], const float t[3]) {
    float x = t[0], y = t[1], z = t[2];
    ml_IDToMat(m);
    m[3][0] = x;
    m[3][1] = y;
    m[3][2] = z;
}

void ml_scaleToMat(float m[4][4], const float s[3]) {
    float x = s[0], y = s[1], z = s[2];
    ml_IDToMat(m);
    m[0][0] = x;
    m[1][1] = y;
    m[2][2] = z;
}

void ml_axisToMat(float m[4][4], const float axis[3], float angle) {
    float x = axis[0], y = axis[1], z = axis[2];
    float c = std::cos(angle), s = std::sin(angle);
    std::memset(m, 0, sizeof(float[4][4]));
    m[3][3] = 1.0f;
    if (x == 0.0f && y == 0.0f) {
        if (z < 0.0f) s = -s;
        m[0][0] = c;
        m[0][1] = s;
        m[1][0] = -s;
        m[1][1] = c;
        m[2][2] = 1.0f;
    } else if (x == 0.0f && z == 0.0f) {
        if (y < 0.0f) s = -s;
        m[0][0] = c;
        m[0][2] = -s;
        m[1][1] = 1.0f;
        m[2][0] = s;
        m[2][2] = c;
    } else if (y == 0.0f && z == 0.0f) {
        if (x < 0.0f) s = -s;
        m[0][0] = 1.0f;
        m[1][1] = c;
        m[1][2] = s;
        m[2][1] = -s;
        m[2][2] = c;
    } else {
        float t = 1.0f - c;
        m[0][0] = x * x * t + c;
        m[0][1] = x * y * t + z * s;
        m[0][2] = x * z * t - y * s;
        m[1][0] = x * y * t - z * s;
        m[1][1] = y * y * t + c;
        m[1][2] = y * z * t + x * s;
        m[2][0] = x * z * t + y * s;
        m[2][1] = y * z * t - x * s;
        m[2][2] = z * z * t + c;
    }
}

// ---- Quaternions

void ml_quatMult(float r[4], const float a[4], const float b[4]) {
    // Eight products instead of sixteen.
    float* p = quatScratch;
    p[0] = (a[0] + a[1]) * (b[0] + b[1]);
    p[1] = (a[3] - a[2]) * (b[2] - b[3]);
    p[2] = (a[0] - a[1]) * (b[2] + b[3]);
    p[3] = (a[2] + a[3]) * (b[0] - b[1]);
    p[4] = (a[1] + a[3]) * (b[1] + b[2]);
    p[5] = (a[1] - a[3]) * (b[1] - b[2]);
    p[6] = (a[0] + a[2]) * (b[0] - b[3]);
    p[7] = (a[0] - a[2]) * (b[0] + b[3]);
    r[0] = p[1] + (-p[4] - p[5] + p[6] + p[7]) * 0.5f;
    r[1] = p[0] - (p[4] + p[5] + p[6] + p[7]) * 0.5f;
    r[2] = p[2] + (p[4] - p[5] + p[6] - p[7]) * 0.5f;
    r[3] = p[3] + (p[4] - p[5] - p[6] + p[7]) * 0.5f;
}

void ml_quatToAxis(float* angle, float axis[3], const float q[4]) {
    float w = q[0] > 1.0f ? 1.0f : (q[0] < -1.0f ? -1.0f : q[0]);
    float a = 2.0f * std::acos(w);
    float s = std::sin(a / 2.0f);
    if (s > 0.0f) {
        axis[0] = q[1] / s;
        axis[1] = q[2] / s;
        axis[2] = q[3] / s;
    } else {
        axis[0] = 0.0f;
        axis[1] = 0.0f;
        axis[2] = 1.0f;
    }
    if (angle) *angle = a;
}

void ml_axisToQuat(float q[4], float angle, const float axis[3]) {
    float s = std::sin(angle / 2.0f);
    float x = axis[0], y = axis[1], z = axis[2];
    q[0] = std::cos(angle / 2.0f);
    q[1] = x * s;
    q[2] = y * s;
    q[3] = z * s;
}

float ml_quatUnitize4(float q[4]) { return ml_vecUnitize4(q); }

void ml_quatToMat(float m[4][4], const float q[4]) {
    float w = q[0], x = q[1], y = q[2], z = q[3];
    ml_IDToMat(m);
    m[0][0] = 1.0f - 2.0f * (y * y + z * z);
    m[0][1] = 2.0f * (x * y + w * z);
    m[0][2] = 2.0f * (x * z - w * y);
    m[1][0] = 2.0f * (x * y - w * z);
    m[1][1] = 1.0f - 2.0f * (x * x + z * z);
    m[1][2] = 2.0f * (y * z + w * x);
    m[2][0] = 2.0f * (x * z + w * y);
    m[2][1] = 2.0f * (y * z - w * x);
    m[2][2] = 1.0f - 2.0f * (x * x + y * y);
}

void ml_matToQuat(float q[4], const float m[4][4]) {
    double trace = static_cast<double>(m[0][0]) + m[1][1] + m[2][2];
    double w, x, y, z;
    if (trace > 0.0) {
        double s = std::sqrt(trace + 1.0) * 2.0;  // 4w
        w = 0.25 * s;
        x = (m[1][2] - m[2][1]) / s;
        y = (m[2][0] - m[0][2]) / s;
        z = (m[0][1] - m[1][0]) / s;
    } else if (m[0][0] > m[1][1] && m[0][0] > m[2][2]) {
        double s = std::sqrt(1.0 + m[0][0] - m[1][1] - m[2][2]) * 2.0;  // 4x
        w = (m[1][2] - m[2][1]) / s;
        x = 0.25 * s;
        y = (m[0][1] + m[1][0]) / s;
        z = (m[2][0] + m[0][2]) / s;
    } else if (m[1][1] > m[2][2]) {
        double s = std::sqrt(1.0 + m[1][1] - m[0][0] - m[2][2]) * 2.0;  // 4y
        w = (m[2][0] - m[0][2]) / s;
        x = (m[0][1] + m[1][0]) / s;
        y = 0.25 * s;
        z = (m[1][2] + m[2][1]) / s;
    } else {
        double s = std::sqrt(1.0 + m[2][2] - m[0][0] - m[1][1]) * 2.0;  // 4z
        w = (m[0][1] - m[1][0]) / s;
        x = (m[2][0] + m[0][2]) / s;
        y = (m[1][2] + m[2][1]) / s;
        z = 0.25 * s;
    }
    q[0] = static_cast<float>(w);
    q[1] = static_cast<float>(x);
    q[2] = static_cast<float>(y);
    q[3] = static_cast<float>(z);
}

void ml_quatSlerp(float r[4], const float from[4], const float to[4], float t) {
    if (t <= 0.0f) {
        if (r != from) std::memmove(r, from, sizeof(float[4]));
        return;
    }
    if (t >= 1.0f) {
        if (r != to) std::memmove(r, to, sizeof(float[4]));
        return;
    }
    double d = 0.0;
    for (int i = 0; i < 4; ++i) d += static_cast<double>(from[i]) * to[i];
    bool negative = d < 0.0;
    if (negative) d = -d;
    double w0, w1;
    if (1.0 - d < kSlerpLinear) {
        w0 = 1.0 - t;
        w1 = t;
    } else {
        double w = std::acos(d > 1.0 ? 1.0 : d);
        double s = std::sin(w);
        w0 = std::sin(w - t * w) / s;
        w1 = std::sin(t * w) / s;
    }
    if (negative) w1 = -w1;
    float out[4];
    for (int i = 0; i < 4; ++i) out[i] = static_cast<float>(w0 * from[i] + w1 * to[i]);
    std::memcpy(r, out, sizeof out);
}

void ml_quatInvert(float r[4], const float q[4]) {
    float n = q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3];
    if (n == 0.0f) {
        r[0] = r[1] = r[2] = r[3] = 0.0f;
        return;
    }
    float w = q[0] / n, x = -q[1] / n, y = -q[2] / n, z = -q[3] / n;
    r[0] = w;
    r[1] = x;
    r[2] = y;
    r[3] = z;
}

void ml_quatDouble(float r[4], const float p[4], const float q[4]) {
    float d = 2.0f * (p[0] * q[0] + p[1] * q[1] + p[2] * q[2] + p[3] * q[3]);
    float out[4];
    for (int i = 0; i < 4; ++i) out[i] = d * q[i] - p[i];
    std::memcpy(r, out, sizeof out);
}

void ml_quatBisect(float r[4], const float p[4], const float q[4]) {
    float out[4];
    ml_vecAdd4(out, p, q);
    ml_vecUnitize4(out);
    std::memcpy(r, out, sizeof out);
}

// ---- Alignment

namespace {

// Rotates `turned` onto `direction` and `follower` by the same rotation.
// Past the right angle the rotation folds by pi, so that the axis ends on
// the line of the direction by the shorter turn, facing either way.
void turnTowards(float turned[3], float follower[3], const float direction[3]) {
    float about[3];
    ml_vecCrossproduct(about, turned, direction);
    if (ml_vecUnitize(about) == 0.0f) return;
    double cosine = turned[0] * direction[0] + turned[1] * direction[1] + turned[2] * direction[2];
    double angle = std::acos(cosine > 1.0 ? 1.0 : (cosine < -1.0 ? -1.0 : cosine));
    if (angle > kRightAngle) angle -= kPi;
    ml_vecRot(turned, turned, about, static_cast<float>(angle));
    ml_vecRot(follower, follower, about, static_cast<float>(angle));
}

}  // namespace

void ml_alligntransform(float r[4][4], const float source[4][4], const float point[3], int flag) {
    float out[4][4];
    std::memcpy(out, source, sizeof out);
    float direction[3];
    ml_vecSub(direction, point, source[3]);
    if (ml_vecUnitize(direction) == 0.0f) {
        copyMat(r, source);
        return;
    }
    float x[3] = {out[0][0], out[0][1], out[0][2]};
    float y[3] = {out[1][0], out[1][1], out[1][2]};
    float z[3] = {out[2][0], out[2][1], out[2][2]};
    ml_vecUnitize(x);
    ml_vecUnitize(y);
    ml_vecUnitize(z);
    if (flag == 0) {
        turnTowards(z, x, direction);
        ml_vecHomo(y, z, x);
    } else {
        turnTowards(y, z, direction);
        ml_vecHomo(x, y, z);
    }
    for (int j = 0; j < 3; ++j) {
        out[0][j] = x[j];
        out[1][j] = y[j];
        out[2][j] = z[j];
    }
    std::memcpy(r, out, sizeof out);
}
