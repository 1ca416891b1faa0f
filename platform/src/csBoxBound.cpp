#include "csBoxBound.h"

#include <cfloat>

void csBoxBound::makeEmpty() {
    min.set(FLT_MAX, FLT_MAX, FLT_MAX);
    max.set(-FLT_MAX, -FLT_MAX, -FLT_MAX);
}

bool csBoxBound::isEmpty() const { return min[0] > max[0] || min[1] > max[1] || min[2] > max[2]; }

void csBoxBound::extendBy(const csVec3f& point) {
    for (int i = 0; i < 3; ++i) {
        if (point[i] < min[i]) min[i] = point[i];
        if (point[i] > max[i]) max[i] = point[i];
    }
}

void csBoxBound::extendBy(const csBoxBound& box) {
    if (box.isEmpty()) return;
    extendBy(box.min);
    extendBy(box.max);
}

bool csBoxBound::contains(const csVec3f& point) const {
    for (int i = 0; i < 3; ++i)
        if (point[i] < min[i] || point[i] > max[i]) return false;
    return true;
}
