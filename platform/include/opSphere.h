// A sphere about the origin with its poles on the z axis. Also known by the
// name csSphere.
#ifndef OP_SPHERE_H
#define OP_SPHERE_H

#include "opRep.h"

class opSphere : public opRep {
    CS_DECLARE_CLASS_TYPE;

    opSphere() = default;

    void setRadius(float radius) {
        _radius = radius;
        parametersChanged();
    }
    float getRadius() const { return _radius; }

protected:
    ~opSphere() override = default;
    opRep* copyParameters() const override {
        auto* copy = new opSphere();
        copy->setRadius(_radius);
        return copy;
    }

private:
    float _radius = 1.0f;
};

using csSphere = opSphere;

#endif
