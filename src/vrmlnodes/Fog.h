// Fog that blends the world into a colour with distance from the viewer.
#ifndef FOG_H
#define FOG_H

#include "vrmlnodes/BindableNode.h"

class Fog : public BindableNode {
public:
    explicit Fog(znInternal* pair);
    ~Fog() override = default;
    void processEvent(Event& event) override;

protected:
    SFColor* color;            // borrowed: the node's own field
    SFString* fogType;         // borrowed: the node's own field
    SFFloat* visibilityRange;  // borrowed: the node's own field
    unsigned char valuesDirty = 1;
};

#endif
