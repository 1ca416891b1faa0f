// A Cone as the toolkit's parametric csCone, which the shape that holds it
// tessellates and stands upright.
#ifndef OPTCONE_H
#define OPTCONE_H

#include "csRefPtr.h"
#include "opCone.h"
#include "vrmlnodes/Cone.h"

class optCone : public Cone {
public:
    explicit optCone(znInternal* pair);
    ~optCone() override = default;
    // The cone, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;

    csCone* getCone() const { return cone.get(); }

private:
    csRefPtr<csCone> cone;
};

#endif
