// A light from one point, shining equally in all directions. It reaches
// `radius` units from its location, and falls off with distance d by
// 1 / max(a0 + a1 d + a2 d^2, 1) for the attenuation (a0, a1, a2).
#ifndef CS_POINT_LIGHT_H
#define CS_POINT_LIGHT_H

#include "csLight.h"

class csPointLight : public csLight {
    CS_DECLARE_CLASS_TYPE;

    csPointLight() = default;

    void setLocation(float x, float y, float z) { _location.set(x, y, z); }
    const csVec3f& getLocation() const { return _location; }
    void setRadius(float radius) { _radius = radius; }
    float getRadius() const { return _radius; }
    void setAttenuation(float constant, float linear, float quadratic) { _attenuation.set(constant, linear, quadratic); }
    const csVec3f& getAttenuation() const { return _attenuation; }

protected:
    ~csPointLight() override = default;

private:
    csVec3f _location;
    float _radius = 100.0f;
    csVec3f _attenuation{1.0f, 0.0f, 0.0f};
};

#endif
