// Polygons through indexed points: the line set's coordinates and colours,
// with normals, texture coordinates, winding and crease angle added.
#ifndef INDEXEDFACESET_H
#define INDEXEDFACESET_H

#include "vrmlnodes/IndexedLineSet.h"

class csNormalSet3f;
class csTexCoordSet2f;

class IndexedFaceSet : public IndexedLineSet {
public:
    explicit IndexedFaceSet(znInternal* pair);
    // For a face set that no file declares: the fields are the object's own
    // values, at their defaults.
    explicit IndexedFaceSet(int);
    ~IndexedFaceSet() override = default;

    void recalcColor(csColorSet4f* set) override = 0;
    void recalcCoord(csCoordSet3f* set) override = 0;
    int action(SFTime& time, int mode, void* state) override = 0;
    void processEvent(Event& event) override;
    void recalcColorIndex(std::vector<int>* list) override = 0;
    void recalcCoordIndex(std::vector<int>* list) override = 0;
    virtual void set_texCoord(SFNode& value, double time);
    virtual void set_normal(SFNode& value, double time);
    virtual void set_normalIndex(MFInt32& value, double time);
    virtual void set_texCoordIndex(MFInt32& value, double time);
    virtual void recalcTexCoord(csTexCoordSet2f* set) = 0;
    virtual void recalcNormal(csNormalSet3f* set) = 0;
    virtual void recalcTexCoordIndex(std::vector<int>* list) = 0;
    virtual void recalcNormalIndex(std::vector<int>* list) = 0;

protected:
    MFInt32* texCoordIndex;  // borrowed: the node's own field, or ownTexCoordIndex
    MFInt32* normalIndex;  // borrowed: the node's own field, or ownNormalIndex
    NodeField<SFBool> normalPerVertex;  // the node's field, or ownNormalPerVertex
    NodeField<SFBool> ccw;  // the node's field, or ownCcw
    NodeField<SFBool> solid;  // the node's field, or ownSolid
    NodeField<SFBool> convex;  // the node's field, or ownConvex
    NodeField<SFFloat> creaseAngle;  // the node's field, or ownCreaseAngle
    NodeField<SFNode> texCoord;  // the node's field, or ownTexCoord
    NodeField<SFNode> normal;  // the node's field, or ownNormal
    Builtin* texCoordObject;  // borrowed: the built-in behind texCoord, or null
    Builtin* normalObject;  // borrowed: the built-in behind normal, or null
    unsigned char texCoordDirty = 0;
    unsigned char normalDirty = 0;
    unsigned char texCoordIndexDirty = 0;
    unsigned char normalIndexDirty = 0;

private:
    MFInt32 ownTexCoordIndex;
    MFInt32 ownNormalIndex;
    SFBool ownNormalPerVertex{1};
    SFBool ownCcw{1};
    SFBool ownSolid{1};
    SFBool ownConvex{1};
    SFFloat ownCreaseAngle;
    SFNode ownTexCoord;
    SFNode ownNormal;
};

#endif
