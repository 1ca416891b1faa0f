#include "csVec.h"

#include <cmath>

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
