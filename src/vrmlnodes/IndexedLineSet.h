// Polylines through indexed points.
#ifndef INDEXEDLINESET_H
#define INDEXEDLINESET_H

#include "vrmlnodes/VRMLNodebase.h"

class IndexedLineSet : public VRMLNode {
public:
    explicit IndexedLineSet(znInternal* pair);
    ~IndexedLineSet() override = default;
    void processEvent(Event& event) override;

    void set_coord(SFNode& value, double time);
    void set_color(SFNode& value, double time);
    void set_colorIndex(MFInt32& value, double time);
    void set_coordIndex(MFInt32& value, double time);

protected:
    SFNode* coord;  // borrowed: the node's own field
    SFNode* color;  // borrowed: the node's own field
    MFInt32* colorIndex;  // borrowed: the node's own field
    MFInt32* coordIndex;  // borrowed: the node's own field
    SFBool* colorPerVertex;  // borrowed: the node's own field
    Builtin* coordObject;  // borrowed: the built-in behind coord, or null
    Builtin* colorObject;  // borrowed: the built-in behind color, or null
    unsigned char coordDirty = 0;
    unsigned char colorDirty = 0;
    unsigned char colorIndexDirty = 0;
    unsigned char coordIndexDirty = 0;
};

#endif
