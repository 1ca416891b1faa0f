// Polygons through indexed points.
#ifndef INDEXEDFACESET_H
#define INDEXEDFACESET_H

#include "vrmlnodes/VRMLNodebase.h"

class IndexedFaceSet : public VRMLNode {
public:
    explicit IndexedFaceSet(znInternal* pair);
    ~IndexedFaceSet() override = default;
    void processEvent(Event& event) override;

    void set_coord(SFNode& value, double time);
    void set_texCoord(SFNode& value, double time);
    void set_color(SFNode& value, double time);
    void set_normal(SFNode& value, double time);
    void set_colorIndex(MFInt32& value, double time);
    void set_coordIndex(MFInt32& value, double time);
    void set_normalIndex(MFInt32& value, double time);
    void set_texCoordIndex(MFInt32& value, double time);

protected:
    SFNode* coord;  // borrowed: the node's own field
    SFNode* texCoord;  // borrowed: the node's own field
    SFNode* color;  // borrowed: the node's own field
    SFNode* normal;  // borrowed: the node's own field
    MFInt32* colorIndex;  // borrowed: the node's own field
    MFInt32* coordIndex;  // borrowed: the node's own field
    MFInt32* normalIndex;  // borrowed: the node's own field
    MFInt32* texCoordIndex;  // borrowed: the node's own field
    SFBool* ccw;  // borrowed: the node's own field
    SFBool* convex;  // borrowed: the node's own field
    SFFloat* creaseAngle;  // borrowed: the node's own field
    SFBool* solid;  // borrowed: the node's own field
    SFBool* colorPerVertex;  // borrowed: the node's own field
    SFBool* normalPerVertex;  // borrowed: the node's own field
    Builtin* coordObject;  // borrowed: the built-in behind coord, or null
    Builtin* texCoordObject;  // borrowed: the built-in behind texCoord, or null
    Builtin* colorObject;  // borrowed: the built-in behind color, or null
    Builtin* normalObject;  // borrowed: the built-in behind normal, or null
    unsigned char coordDirty = 0;
    unsigned char texCoordDirty = 0;
    unsigned char colorDirty = 0;
    unsigned char normalDirty = 0;
    unsigned char colorIndexDirty = 0;
    unsigned char coordIndexDirty = 0;
    unsigned char normalIndexDirty = 0;
    unsigned char texCoordIndexDirty = 0;
};

#endif
