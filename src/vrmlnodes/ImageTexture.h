// A texture read from an image file.
#ifndef IMAGETEXTURE_H
#define IMAGETEXTURE_H

#include "vrmlnodes/URLNode.h"

class ImageTexture : public URLNode {
public:
    explicit ImageTexture(znInternal* pair);
    ~ImageTexture() override = default;
    void processEvent(Event& event) override;

    void set_url(MFString& value, double time);

protected:
    MFString* url;  // borrowed: the node's own field
    SFBool* repeatS;  // borrowed: the node's own field
    SFBool* repeatT;  // borrowed: the node's own field
    unsigned char urlDirty = 0;
};

#endif
