// Colours for the vertices or faces of a geometry.
#ifndef COLOR_H
#define COLOR_H

#include "vrmlnodes/VRMLNodebase.h"

class Color : public VRMLNode {
public:
    explicit Color(znInternal* pair);
    ~Color() override = default;
    void processEvent(Event& event) override;

    virtual void set_color(MFColor& value, double time);

    // The field that geometry reads and cleans once it has seen a change.
    MFColor* getColor() { return color; }

protected:
    MFColor* color;  // borrowed: the node's own field
    unsigned char colorDirty = 0;
};

#endif
