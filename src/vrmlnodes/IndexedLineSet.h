// Polylines through indexed points, and the base of the indexed face set,
// which shares its coordinates, colours and their index lists.
#ifndef INDEXEDLINESET_H
#define INDEXEDLINESET_H

#include <vector>

#include "vrmlnodes/VRMLNodebase.h"

class csColorSet4f;
class csCoordSet3f;

class IndexedLineSet : public VRMLNode {
public:
    explicit IndexedLineSet(znInternal* pair);
    // For a geometry that no file declares: the fields are the object's own
    // values, at their defaults.
    explicit IndexedLineSet(int);
    ~IndexedLineSet() override = default;

    virtual void set_coord(SFNode& value, double time);
    virtual void set_color(SFNode& value, double time);
    // The back-end compiles a data set into its geometry; null means the
    // node has none. A line set without a back-end compiles nothing.
    virtual void recalcColor(csColorSet4f*) {}
    virtual void recalcCoord(csCoordSet3f*) {}
    void processEvent(Event& event) override;
    virtual void set_colorIndex(MFInt32& value, double time);
    virtual void set_coordIndex(MFInt32& value, double time);
    // An index list, which the call may change; null means none was given.
    virtual void recalcColorIndex(std::vector<int>*) {}
    virtual void recalcCoordIndex(std::vector<int>*) {}

protected:
    SFNode* coord;  // borrowed: the node's own field, or ownCoord
    NodeField<SFNode> color;  // the node's field, or ownColor
    MFInt32* colorIndex;  // borrowed: the node's own field, or ownColorIndex
    MFInt32* coordIndex;  // borrowed: the node's own field, or ownCoordIndex
    NodeField<SFBool> colorPerVertex;  // the node's field, or ownColorPerVertex
    Builtin* coordObject;  // borrowed: the built-in behind coord, or null
    Builtin* colorObject;  // borrowed: the built-in behind color, or null
    unsigned char coordDirty = 0;
    unsigned char colorDirty = 0;
    unsigned char colorIndexDirty = 0;
    unsigned char coordIndexDirty = 0;

private:
    SFNode ownCoord;
    SFNode ownColor;
    MFInt32 ownColorIndex;
    MFInt32 ownCoordIndex;
    SFBool ownColorPerVertex{1};
};

#endif
