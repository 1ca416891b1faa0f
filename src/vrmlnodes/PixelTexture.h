// A texture whose picture stands in the world itself, pixel by pixel.
#ifndef PIXELTEXTURE_H
#define PIXELTEXTURE_H

#include "vrmlnodes/VRMLNodebase.h"

class PixelTexture : public VRMLNode {
public:
    explicit PixelTexture(znInternal* pair);
    ~PixelTexture() override = default;
    void processEvent(Event& event) override;

protected:
    SFImage* image;   // borrowed: the node's own field
    SFBool* repeatS;  // borrowed: the node's own field
    SFBool* repeatT;  // borrowed: the node's own field
    unsigned char imageDirty = 1;
};

#endif
