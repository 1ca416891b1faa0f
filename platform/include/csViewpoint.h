// A place to look at the scene from: a position and an orientation in the
// coordinates of the viewpoint's parent (the camera looks along -z and up
// along +y before the orientation turns it), the vertical or horizontal
// field of view, whichever is smaller, in radians, and a text to offer the
// user. It stands in the scene graph where the world put it, so the
// transforms above it move it.
#ifndef CS_VIEWPOINT_H
#define CS_VIEWPOINT_H

#include <string>

#include "csNode.h"
#include "csVec.h"

class csViewpoint : public csNode {
    CS_DECLARE_CLASS_TYPE;

    csViewpoint() = default;

    void setPosition(float x, float y, float z) { _position.set(x, y, z); }
    const csVec3f& getPosition() const { return _position; }
    // An axis and an angle in radians.
    void setOrientation(float x, float y, float z, float angle) { _orientation.set(x, y, z, angle); }
    const csVec4f& getOrientation() const { return _orientation; }
    void setFieldOfView(float angle) { _fieldOfView = angle; }
    float getFieldOfView() const { return _fieldOfView; }
    // Whether moving to this viewpoint jumps there rather than keeping the
    // viewer where he is.
    void setJump(bool jump) { _jump = jump; }
    bool getJump() const { return _jump; }
    void setDescription(const std::string& description) { _description = description; }
    const std::string& getDescription() const { return _description; }

protected:
    ~csViewpoint() override = default;

private:
    csVec3f _position{0.0f, 0.0f, 10.0f};
    csVec4f _orientation{0.0f, 0.0f, 1.0f, 0.0f};
    float _fieldOfView = 0.785398f;
    bool _jump = true;
    std::string _description;
};

#endif
