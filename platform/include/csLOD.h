// A group whose children are the levels of detail of one object, finest
// first. The renderer shows level i while the viewer's distance from the
// centre lies below range i and above range i - 1; past the last range it
// shows the last level. Every level stays a child: choosing is not the
// scene's business.
#ifndef CS_LOD_H
#define CS_LOD_H

#include <vector>

#include "csGroup.h"
#include "csVec.h"

class csLOD : public csGroup {
    CS_DECLARE_CLASS_TYPE;

    csLOD() = default;

    void setRanges(const std::vector<float>& ranges) { _ranges = ranges; }
    const std::vector<float>& getRanges() const { return _ranges; }
    void setCenter(float x, float y, float z) { _center.set(x, y, z); }
    const csVec3f& getCenter() const { return _center; }

protected:
    ~csLOD() override = default;

private:
    std::vector<float> _ranges;
    csVec3f _center;
};

#endif
