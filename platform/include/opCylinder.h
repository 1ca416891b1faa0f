// A cylinder standing on the z axis from z = -height/2 to +height/2. Also
// known by the name csCylinder.
#ifndef OP_CYLINDER_H
#define OP_CYLINDER_H

#include "opRep.h"

class opCylinder : public opRep {
    CS_DECLARE_CLASS_TYPE;

    opCylinder() = default;

    void setRadius(float radius) { change(_radius, radius); }
    float getRadius() const { return _radius; }
    void setHeight(float height) { change(_height, height); }
    float getHeight() const { return _height; }
    void setSide(bool on) { change(_side, on); }
    bool getSide() const { return _side; }
    void setTop(bool on) { change(_top, on); }
    bool getTop() const { return _top; }
    void setBottom(bool on) { change(_bottom, on); }
    bool getBottom() const { return _bottom; }

protected:
    ~opCylinder() override = default;
    opRep* copyParameters() const override {
        auto* copy = new opCylinder();
        copy->setRadius(_radius);
        copy->setHeight(_height);
        copy->setSide(_side);
        copy->setTop(_top);
        copy->setBottom(_bottom);
        return copy;
    }

private:
    template <class T>
    void change(T& member, T value) {
        member = value;
        parametersChanged();
    }

    float _radius = 1.0f;
    float _height = 2.0f;
    bool _side = true;
    bool _top = true;
    bool _bottom = true;
};

using csCylinder = opCylinder;

#endif
