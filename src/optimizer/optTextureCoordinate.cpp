#include "optimizer/optTextureCoordinate.h"

#include "optimizer/opt_set_fill.h"

optTextureCoordinate::optTextureCoordinate(znInternal* pair) : BaseNode(pair), TextureCoordinate(pair) {
    set.reset(new csTexCoordSet2f(point ? point->getSize() : 0));
    if (point) fill(*point);
    built = 1;
}

int optTextureCoordinate::action(SFTime&, int, void*) { return set->getHandle(); }

void optTextureCoordinate::set_point(MFVec2f& value, double time) {
    TextureCoordinate::set_point(value, time);
    fill(value);
}

void optTextureCoordinate::fill(MFVec2f& value) {
    optFillSet(value, set->point(), [](const _znArray<float>& p) {
        return csVec2f(optComponent(p, 0), optComponent(p, 1));
    });
}
