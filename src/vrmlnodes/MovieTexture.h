// A texture whose pictures come from a movie file, with how to play it.
#ifndef MOVIETEXTURE_H
#define MOVIETEXTURE_H

#include "vrmlnodes/VRMLNodebase.h"

class MovieTexture : public VRMLNode {
public:
    explicit MovieTexture(znInternal* pair);
    ~MovieTexture() override = default;
    void processEvent(Event& event) override;

protected:
    MFString* url;    // borrowed: the node's own field
    SFBool* loop;     // borrowed: the node's own field
    SFFloat* speed;   // borrowed: the node's own field
    SFBool* repeatS;  // borrowed: the node's own field
    SFBool* repeatT;  // borrowed: the node's own field
    unsigned char valuesDirty = 1;
};

#endif
