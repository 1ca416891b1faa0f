// A place to view the world from, with its field of view and a text for
// the user. The world's first viewpoint is where the viewer starts.
#ifndef VIEWPOINT_H
#define VIEWPOINT_H

#include "vrmlnodes/BindableNode.h"

class Viewpoint : public BindableNode {
public:
    explicit Viewpoint(znInternal* pair);
    ~Viewpoint() override = default;
    void processEvent(Event& event) override;

protected:
    NodeField<SFFloat> fieldOfView;
    NodeField<SFBool> jump;
    NodeField<SFRotation> orientation;
    NodeField<SFVec3f> position;
    NodeField<SFString> description;
    unsigned char valuesDirty = 1;
};

#endif
