// Compiles a PointSet into one csPointSet: one point for each coordinate,
// coloured per vertex, drawn unlit.
#ifndef OPTPOINTSET_H
#define OPTPOINTSET_H

#include "csPointSet.h"
#include "optimizer/optUnlitGeometry.h"
#include "vrmlnodes/PointSet.h"

class optPointSet : public optUnlitGeometry<PointSet, csPointSet> {
public:
    explicit optPointSet(znInternal* pair);
    ~optPointSet() override = default;

    // Null gives the alert for missing coordinates and keeps the old set.
    void recalcCoord(csCoordSet3f* set) { takeCoords(set); }
    // Colours bind per vertex; null leaves the point set without colours of
    // its own.
    void recalcColor(csColorSet4f* set);

private:
    void build(SFTime& time) override;
    void refresh(SFTime& time) override;
    void coordsTaken() override;
    void takeColoursFromNode(SFTime& time);
};

#endif
