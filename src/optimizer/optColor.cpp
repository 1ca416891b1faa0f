#include "optimizer/optColor.h"

#include "optimizer/opt_set_fill.h"

optColor::optColor(znInternal* pair) : BaseNode(pair), Color(pair) {
    set.reset(new csColorSet4f(color ? color->getSize() : 0));
    if (color) fill(*color);
    built = 1;
}

int optColor::action(SFTime&, int, void*) { return set->getHandle(); }

void optColor::set_color(MFColor& value, double time) {
    Color::set_color(value, time);
    fill(value);
}

void optColor::fill(MFColor& value) {
    // A colour of the file has no alpha: it is opaque.
    optFillSet(value, set->color(), [](const _znArray<float>& c) {
        return csVec4f(optComponent(c, 0), optComponent(c, 1), optComponent(c, 2), 1.0f);
    });
}
