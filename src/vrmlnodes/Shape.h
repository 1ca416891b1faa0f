// Geometry with its appearance.
#ifndef SHAPE_H
#define SHAPE_H

#include "vrmlnodes/VRMLNodebase.h"

class Shape : public VRMLNode {
public:
    explicit Shape(znInternal* pair);
    ~Shape() override = default;
    void processEvent(Event& event) override;

    void set_appearance(SFNode& value, double time);
    void set_geometry(SFNode& value, double time);
    // The refresh pass: appearance, then geometry, each with mode 1 and
    // `state`. Answers 0.
    int action(SFTime& time, int mode, void* state) override;

protected:
    SFNode* appearance;  // borrowed: the node's own field
    SFNode* geometry;  // borrowed: the node's own field
    Builtin* appearanceObject;  // borrowed: the built-in behind appearance, or null
    Builtin* geometryObject;  // borrowed: the built-in behind geometry, or null
    unsigned char appearanceDirty = 1;
    unsigned char geometryDirty = 1;
};

#endif
