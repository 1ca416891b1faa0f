// Normals as a scene-graph normal set of unit vectors, kept equal in
// direction to the node's field.
#ifndef OPTNORMAL_H
#define OPTNORMAL_H

#include "csDataSets.h"
#include "csRefPtr.h"
#include "vrmlnodes/Normal.h"

class optNormal : public Normal {
public:
    explicit optNormal(znInternal* pair);
    ~optNormal() override = default;
    // The normal set, whatever the arguments.
    int action(SFTime& time, int mode, void* state) override;
    void set_vector(MFVec3f& value, double time) override;

private:
    void fill(MFVec3f& value);

    csRefPtr<csNormalSet3f> set;
};

#endif
