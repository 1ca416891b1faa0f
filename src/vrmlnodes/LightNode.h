// What every light shares: whether it is on, its intensity, ambient
// intensity and colour. Events store a value and raise one flag; the
// back-end then takes all values again, a handful of numbers.
#ifndef LIGHTNODE_H
#define LIGHTNODE_H

#include "vrmlnodes/VRMLNodebase.h"

class LightNode : public virtual VRMLNode {
public:
    LightNode();
    ~LightNode() override = default;
    void processEvent(Event& event) override;

protected:
    // The events of a kind of light beyond the shared ones: true when
    // `event` was one of them.
    virtual bool storeOwnEvent(Event&) { return false; }

    NodeField<SFBool> on;
    NodeField<SFFloat> intensity;
    NodeField<SFFloat> ambientIntensity;
    NodeField<SFColor> color;
    unsigned char valuesDirty = 1;
};

#endif
