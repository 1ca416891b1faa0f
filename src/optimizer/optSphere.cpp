#include "optimizer/optSphere.h"

#include "optimizer/optSceneName.h"
#include "optimizer/opt_geometry.h"
#include "optimizer/optimizer_messages.h"

optSphere::optSphere(znInternal* pair) : BaseNode(pair), Sphere(pair) {
    sphere.reset(new csSphere());
    nameInScene(sphere.get(), *this, kUnnamedSphere);
    optCopyField(*sphere.get(), &csSphere::setRadius, radius);
    built = 1;
}

int optSphere::action(SFTime&, int, void*) { return sphere->getHandle(); }
