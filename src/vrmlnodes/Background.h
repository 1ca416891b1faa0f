// What lies behind the world: bands of sky and ground colour at angles
// from straight up and straight down, and six pictures on a box around
// the viewer.
#ifndef BACKGROUND_H
#define BACKGROUND_H

#include "vrmlnodes/BindableNode.h"

class Background : public BindableNode {
public:
    explicit Background(znInternal* pair);
    ~Background() override = default;
    void processEvent(Event& event) override;

protected:
    MFFloat* groundAngle;  // borrowed: the node's own field
    MFColor* groundColor;  // borrowed: the node's own field
    MFString* backUrl;     // borrowed: the node's own field
    MFString* bottomUrl;   // borrowed: the node's own field
    MFString* frontUrl;    // borrowed: the node's own field
    MFString* leftUrl;     // borrowed: the node's own field
    MFString* rightUrl;    // borrowed: the node's own field
    MFString* topUrl;      // borrowed: the node's own field
    MFFloat* skyAngle;     // borrowed: the node's own field
    MFColor* skyColor;     // borrowed: the node's own field
    unsigned char valuesDirty = 1;
};

#endif
