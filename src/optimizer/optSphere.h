// A Sphere as the toolkit's parametric csSphere, which the shape that holds it
// tessellates and stands upright.
#ifndef OPTSPHERE_H
#define OPTSPHERE_H

#include "csRefPtr.h"
#include "opSphere.h"
#include "vrmlnodes/Sphere.h"

class optSphere : public Sphere {
public:
    explicit optSphere(znInternal* pair);
    ~optSphere() override = default;
    // The sphere, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    csSphere* getSphere() const { return sphere.get(); }

private:
    csRefPtr<csSphere> sphere;
};

#endif
