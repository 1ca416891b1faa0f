// A box about the origin with the given edge lengths along x, y and z.
#ifndef OP_CUBOID_H
#define OP_CUBOID_H

#include "csVec.h"
#include "opRep.h"

class opCuboid : public opRep {
    CS_DECLARE_CLASS_TYPE;

    opCuboid() = default;

    void setSize(float x, float y, float z) {
        _size.set(x, y, z);
        parametersChanged();
    }
    const csVec3f& getSize() const { return _size; }

protected:
    ~opCuboid() override = default;
    opRep* copyParameters() const override {
        auto* copy = new opCuboid();
        copy->setSize(_size[0], _size[1], _size[2]);
        return copy;
    }

private:
    csVec3f _size{2.0f, 2.0f, 2.0f};
};

#endif
