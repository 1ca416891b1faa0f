#include "optimizer/optNormal.h"

#include "optimizer/opt_set_fill.h"

optNormal::optNormal(znInternal* pair) : BaseNode(pair), Normal(pair) {
    set.reset(new csNormalSet3f(vector ? vector->getSize() : 0));
    if (vector) fill(*vector);
    built = 1;
}

int optNormal::action(SFTime&, int, void*) { return set->getHandle(); }

void optNormal::set_vector(MFVec3f& value, double time) {
    Normal::set_vector(value, time);
    fill(value);
}

void optNormal::fill(MFVec3f& value) {
    // A file need not hold unit vectors; lighting needs them.
    optFillSet(value, set->vector(), [](const _znArray<float>& v) {
        csVec3f n(optComponent(v, 0), optComponent(v, 1), optComponent(v, 2));
        n.normalize();
        return n;
    });
}
