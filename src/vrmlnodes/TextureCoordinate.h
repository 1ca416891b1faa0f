// Texture coordinates of a geometry.
#ifndef TEXTURECOORDINATE_H
#define TEXTURECOORDINATE_H

#include "vrmlnodes/VRMLNodebase.h"

class TextureCoordinate : public VRMLNode {
public:
    explicit TextureCoordinate(znInternal* pair);
    ~TextureCoordinate() override = default;
    void processEvent(Event& event) override;

    virtual void set_point(MFVec2f& value, double time);

    // The field that geometry reads and cleans once it has seen a change.
    MFVec2f* getPoint() { return point; }

protected:
    MFVec2f* point;  // borrowed: the node's own field
    unsigned char pointDirty = 0;
};

#endif
