// A Cylinder as the toolkit's parametric csCylinder, which the shape that holds it
// tessellates and stands upright.
#ifndef OPTCYLINDER_H
#define OPTCYLINDER_H

#include "csRefPtr.h"
#include "opCylinder.h"
#include "vrmlnodes/Cylinder.h"

class optCylinder : public Cylinder {
public:
    explicit optCylinder(znInternal* pair);
    ~optCylinder() override = default;
    // The cylinder, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    csCylinder* getCylinder() const { return cylinder.get(); }

private:
    csRefPtr<csCylinder> cylinder;
};

#endif
