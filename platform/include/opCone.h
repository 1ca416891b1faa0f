// A cone standing on the z axis: its base at z = -height/2, its apex at
// z = +height/2. Also known by the name csCone.
#ifndef OP_CONE_H
#define OP_CONE_H

#include "opRep.h"

class opCone : public opRep {
    CS_DECLARE_CLASS_TYPE;

    opCone() = default;

    void setBottomRadius(float radius) { change(_bottomRadius, radius); }
    float getBottomRadius() const { return _bottomRadius; }
    void setHeight(float height) { change(_height, height); }
    float getHeight() const { return _height; }
    void setSide(bool on) { change(_side, on); }
    bool getSide() const { return _side; }
    void setBottom(bool on) { change(_bottom, on); }
    bool getBottom() const { return _bottom; }

protected:
    ~opCone() override = default;
    opRep* copyParameters() const override {
        auto* copy = new opCone();
        copy->setBottomRadius(_bottomRadius);
        copy->setHeight(_height);
        copy->setSide(_side);
        copy->setBottom(_bottom);
        return copy;
    }

private:
    template <class T>
    void change(T& member, T value) {
        member = value;
        parametersChanged();
    }

    float _bottomRadius = 1.0f;
    float _height = 2.0f;
    bool _side = true;
    bool _bottom = true;
};

using csCone = opCone;

#endif
