// A light from one direction, as from a far sun.
#ifndef CS_DIRECTIONAL_LIGHT_H
#define CS_DIRECTIONAL_LIGHT_H

#include "csLight.h"

class csDirectionalLight : public csLight {
    CS_DECLARE_CLASS_TYPE;

    csDirectionalLight() = default;

    void setDirection(float x, float y, float z) { _direction.set(x, y, z); }
    const csVec3f& getDirection() const { return _direction; }

protected:
    ~csDirectionalLight() override = default;

private:
    csVec3f _direction{0.0f, 0.0f, -1.0f};
};

#endif
