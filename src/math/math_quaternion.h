// Vector, matrix and quaternion maths over plain float arrays.
//
// Conventions:
// - A matrix is float[4][4], row-major, and acts on row vectors: a point p
//   becomes p * M, and a translation stands in m[3][0..2].
// - A quaternion is float[4], scalar first: (cos(a/2), axis * sin(a/2)).
// - Angles are in radians.
// - Results go to the first argument, which may be the same array as a
//   source.
// - ml_matTranslate, ml_matRotate and ml_matScale multiply their operation
//   in from the front (m = Op * m): the last one called acts first on a
//   point, so that a chain written outermost first reads like the VRML
//   transform rule.
#ifndef MATH_QUATERNION_H
#define MATH_QUATERNION_H

extern const float ml_idmat[4][4];

// ---- Vectors
float ml_vecNormalize(float r[3], const float v[3]);  // r = v / |v|; answers |v|
void ml_vecCrossproduct(float r[3], const float a[3], const float b[3]);
void ml_vecSub(float r[3], const float a[3], const float b[3]);
void ml_vecSub4(float r[4], const float a[4], const float b[4]);
void ml_vecAdd(float r[3], const float a[3], const float b[3]);
void ml_vecAdd4(float r[4], const float a[4], const float b[4]);
void ml_vecScalarmult(float r[3], float s, const float v[3]);
// Normalise in place and answer the old length; a zero vector stays zero.
float ml_vecUnitize(float v[3]);
float ml_vecUnitize4(float v[4]);
// r = a + t (b - a).
void ml_vecInterp(float r[3], const float a[3], const float b[3], float t);
// Rotates v about `axis` (any length but zero) by `angle`, as ml_axisToMat.
void ml_vecRot(float r[3], const float v[3], const float axis[3], float angle);
// The unit third axis of a right-handed frame: unitized a x b.
void ml_vecHomo(float r[3], const float a[3], const float b[3]);

// ---- Vectors by matrices
void ml_vecMult(float r[3], const float v[3], const float m[4][4]);   // v * M, w = 1
void ml_vecMult0(float r[3], const float v[3], const float m[4][4]);  // v * M, translation ignored
void ml_vecMult4(float r[4], const float v[4], const float m[4][4]);  // v * M, four components
void ml_multVec(float r[3], const float m[4][4], const float v[3]);   // M * v (column), w = 1
void ml_multVec0(float r[3], const float m[4][4], const float v[3]);  // M * v, translation ignored
// r[j] = sum over i of v[i] * m[i * cols + j]: a row vector of `rows`
// components by a rows x cols matrix. r must not overlap v.
void ml_multVecMatmn(float* r, const float* v, const float* m, int rows, int cols);
void ml_scaleVecArray(float (*v)[3], int count, float s);

// ---- Matrices
void ml_matMult(float r[4][4], const float a[4][4], const float b[4][4]);  // r = a * b
void ml_matTranslate(float m[4][4], const float t[3]);
void ml_matRotate(float m[4][4], const float axis[3], float angle);
void ml_matScale(float m[4][4], const float s[3]);
// General inverse; answers 0, leaving r alone, for a singular matrix.
int ml_matInvert(float r[4][4], const float m[4][4]);
// Product and inverse of rigid matrices (rotation and translation only,
// last column 0, 0, 0, 1).
void ml_matMulthomo(float r[4][4], const float a[4][4], const float b[4][4]);
void ml_matInverthomo(float r[4][4], const float m[4][4]);
void ml_matPrint(const float m[4][4]);
// 1 when the upper 3x3 part is the identity within 0.0001.
int ml_matIsidrot(const float m[4][4]);
// Element by element: r = a + t (b - a).
void ml_matLinterp(float r[4][4], const float a[4][4], const float b[4][4], float t);

// ---- Rigidity tests
// Null when the rotation part is rigid, otherwise why not, in a buffer that
// the next call overwrites.
const char* ml_matUnhomo(const float m[4][4]);
int ml_matIshomo(const float m[4][4]);
// Prints "label: reason" on standard output when the matrix is not rigid.
void ml_matTesthomo(const float m[4][4], const char* label);

// ---- Matrix makers
void ml_IDToMat(float m[4][4]);
// Rotation about x by xyz[0], then y by xyz[1], then z by xyz[2].
void ml_xyzToMat(float m[4][4], const float xyz[3]);
void ml_transToMat(float m[4][4], const float t[3]);
void ml_scaleToMat(float m[4][4], const float s[3]);
// Rotation about a unit axis; rotations about a principal axis are made
// exactly.
void ml_axisToMat(float m[4][4], const float axis[3], float angle);

// ---- Quaternions
// r = a * b (Hamilton product): the rotation of b, then that of a. Not
// reentrant: it works in process-wide scratch cells.
void ml_quatMult(float r[4], const float a[4], const float b[4]);
void ml_quatToAxis(float* angle, float axis[3], const float q[4]);
void ml_axisToQuat(float q[4], float angle, const float axis[3]);
float ml_quatUnitize4(float q[4]);
void ml_quatToMat(float m[4][4], const float q[4]);
void ml_matToQuat(float q[4], const float m[4][4]);
// Spherical interpolation the short way round, in double precision.
void ml_quatSlerp(float r[4], const float from[4], const float to[4], float t);
void ml_quatInvert(float r[4], const float q[4]);
// p mirrored through q: 2 (p . q) q - p.
void ml_quatDouble(float r[4], const float p[4], const float q[4]);
// The unit quaternion halfway between p and q: (p + q) / |p + q|.
void ml_quatBisect(float r[4], const float p[4], const float q[4]);

// ---- Alignment
// Turns the axes of `source` towards `point` (taken relative to the
// matrix's translation): flag 0 turns the z axis, any other flag the y
// axis; the x axis (flag 0) or the z axis follows by the same rotation, and
// the third axis completes the frame. The translation is kept.
void ml_alligntransform(float r[4][4], const float source[4][4], const float point[3], int flag);

#endif
