#include "optimizer/optCylinder.h"

#include "optimizer/optSceneName.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/optimizer_messages.h"

optCylinder::optCylinder(znInternal* pair) : BaseNode(pair), Cylinder(pair) {
    cylinder.reset(new csCylinder());
    nameInScene(cylinder.get(), *this, kUnnamedCylinder);
    optCopyField(*cylinder.get(), &csCylinder::setRadius, radius);
    optCopyField(*cylinder.get(), &csCylinder::setHeight, height);
    optCopyField(*cylinder.get(), &csCylinder::setSide, side);
    optCopyField(*cylinder.get(), &csCylinder::setTop, top);
    optCopyField(*cylinder.get(), &csCylinder::setBottom, bottom);
    built = 1;
}

int optCylinder::action(SFTime&, int, void*) { return cylinder->getHandle(); }
