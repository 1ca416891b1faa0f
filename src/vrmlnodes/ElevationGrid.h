// A height field: heights over a grid of xDimension by zDimension points,
// spaced evenly along x and z, with colours, normals and texture
// coordinates per point or per square.
#ifndef ELEVATIONGRID_H
#define ELEVATIONGRID_H

#include "vrmlnodes/VRMLNodebase.h"

class ElevationGrid : public VRMLNode {
public:
    explicit ElevationGrid(znInternal* pair);
    ~ElevationGrid() override = default;
    void processEvent(Event& event) override;

    virtual void set_height(MFFloat& value, double time);
    virtual void set_color(SFNode& value, double time);
    virtual void set_normal(SFNode& value, double time);
    virtual void set_texCoord(SFNode& value, double time);

protected:
    SFNode* color;             // borrowed: the node's own field
    SFNode* normal;            // borrowed: the node's own field
    SFNode* texCoord;          // borrowed: the node's own field
    MFFloat* height;           // borrowed: the node's own field
    SFBool* ccw;               // borrowed: the node's own field
    SFBool* colorPerVertex;    // borrowed: the node's own field
    SFFloat* creaseAngle;      // borrowed: the node's own field
    SFBool* normalPerVertex;   // borrowed: the node's own field
    SFBool* solid;             // borrowed: the node's own field
    SFInt32* xDimension;       // borrowed: the node's own field
    SFFloat* xSpacing;         // borrowed: the node's own field
    SFInt32* zDimension;       // borrowed: the node's own field
    SFFloat* zSpacing;         // borrowed: the node's own field
    Builtin* colorObject;      // borrowed: the built-in behind color, or null
    Builtin* normalObject;     // borrowed: the built-in behind normal, or null
    Builtin* texCoordObject;   // borrowed: the built-in behind texCoord, or null
    // Raised by every change: the back-end builds the grid anew.
    unsigned char gridDirty = 0;
};

#endif
