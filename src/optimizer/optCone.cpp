#include "optimizer/optCone.h"

#include "optimizer/optSceneName.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/optimizer_messages.h"

optCone::optCone(znInternal* pair) : BaseNode(pair), Cone(pair) {
    cone.reset(new csCone());
    nameInScene(cone.get(), *this, kUnnamedCone);
    optCopyField(*cone.get(), &csCone::setBottomRadius, bottomRadius);
    optCopyField(*cone.get(), &csCone::setHeight, height);
    optCopyField(*cone.get(), &csCone::setSide, side);
    optCopyField(*cone.get(), &csCone::setBottom, bottom);
    built = 1;
}

int optCone::action(SFTime&, int, void*) { return cone->getHandle(); }
