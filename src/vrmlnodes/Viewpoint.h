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
    SFFloat* fieldOfView;     // borrowed: the node's own field
    SFBool* jump;             // borrowed: the node's own field
    SFRotation* orientation;  // borrowed: the node's own field
    SFVec3f* position;        // borrowed: the node's own field
    SFString* description;    // borrowed: the node's own field
    unsigned char valuesDirty = 1;
};

#endif
