#include "csVec.h"

#include <cmath>

float csVec3f::length() const { return std::sqrt(dot(*this)); }

float csVec3f::normalize() {
    float len = length();
    if (len > 0.0f) {
        vec[0] /= len;
        vec[1] /= len;
        vec[2] /= len;
    }
    return len;
}

void csVec3f::cross(const csVec3f& a, const csVec3f& b) {
    // Through locals, so that `a` or `b` may be this vector.
    float x = a.vec[1] * b.vec[2] - a.vec[2] * b.vec[1];
    float y = a.vec[2] * b.vec[0] - a.vec[0] * b.vec[2];
    float z = a.vec[0] * b.vec[1] - a.vec[1] * b.vec[0];
    set(x, y, z);
}

void csVec3f::add(const csVec3f& a, const csVec3f& b) {
    set(a.vec[0] + b.vec[0], a.vec[1] + b.vec[1], a.vec[2] + b.vec[2]);
}

void csVec3f::sub(const csVec3f& a, const csVec3f& b) {
    set(a.vec[0] - b.vec[0], a.vec[1] - b.vec[1], a.vec[2] - b.vec[2]);
}

void csVec3f::scale(float s, const csVec3f& v) { set(s * v.vec[0], s * v.vec[1], s * v.vec[2]); }

bool csVec3f::almostEqual(const csVec3f& o, float tolerance) const {
    for (int i = 0; i < 3; ++i)
        if (std::fabs(vec[i] - o.vec[i]) > tolerance) return false;
    return true;
}

void csVec3fArray::set(int index, const csVec3f& value) {
    if (index < 0) return;
    if (static_cast<size_t>(index) >= _values.size()) _values.resize(static_cast<size_t>(index) + 1);
    _values[static_cast<size_t>(index)] = value;
}

csVec3f csVec3fArray::get(int index) const {
    if (index < 0 || static_cast<size_t>(index) >= _values.size()) return csVec3f();
    return _values[static_cast<size_t>(index)];
}
