#include "optimizer/optCoordinate.h"

#include "optimizer/opt_set_fill.h"

optCoordinate::optCoordinate(znInternal* pair) : BaseNode(pair), Coordinate(pair) {
    set.reset(new csCoordSet3f(point ? point->getSize() : 0));
    if (point) fill(*point);
    built = 1;
}

int optCoordinate::action(SFTime&, int, void*) { return set->getHandle(); }

void optCoordinate::set_point(MFVec3f& value, double time) {
    Coordinate::set_point(value, time);
    fill(value);
}

void optCoordinate::fill(MFVec3f& value) {
    optFillSet(value, set->point(), [](const _znArray<float>& p) {
        return csVec3f(optComponent(p, 0), optComponent(p, 1), optComponent(p, 2));
    });
}
