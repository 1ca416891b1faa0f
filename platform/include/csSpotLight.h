// A point light that shines into a cone about its direction: at full
// intensity within `beamWidth` of the axis, falling off to nothing at
// `cutOffAngle` (both in radians). A renderer that knows only point lights
// may take it for one.
#ifndef CS_SPOT_LIGHT_H
#define CS_SPOT_LIGHT_H

#include "csPointLight.h"

class csSpotLight : public csPointLight {
    CS_DECLARE_CLASS_TYPE;

    csSpotLight() = default;

    void setDirection(float x, float y, float z) { _direction.set(x, y, z); }
    const csVec3f& getDirection() const { return _direction; }
    void setBeamWidth(float angle) { _beamWidth = angle; }
    float getBeamWidth() const { return _beamWidth; }
    void setCutOffAngle(float angle) { _cutOffAngle = angle; }
    float getCutOffAngle() const { return _cutOffAngle; }

protected:
    ~csSpotLight() override = default;

private:
    csVec3f _direction{0.0f, 0.0f, -1.0f};
    float _beamWidth = 1.570796f;
    float _cutOffAngle = 0.785398f;
};

#endif
