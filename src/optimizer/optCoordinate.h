// Points as a scene-graph coordinate set, kept equal to the node's field.
#ifndef OPTCOORDINATE_H
#define OPTCOORDINATE_H

#include "csDataSets.h"
#include "csRefPtr.h"
#include "vrmlnodes/Coordinate.h"

class optCoordinate : public Coordinate {
public:
    explicit optCoordinate(znInternal* pair);
    ~optCoordinate() override = default;
    // The coordinate set, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;
    void set_point(MFVec3f& value, double time) override;

private:
    void fill(MFVec3f& value);

    csRefPtr<csCoordSet3f> set;
};

#endif
