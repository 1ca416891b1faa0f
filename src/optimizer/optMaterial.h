// The back-end of Material: a csMaterial that takes the changed colours.
#ifndef OPT_MATERIAL_H
#define OPT_MATERIAL_H

#include "csRefPtr.h"
#include "vrmlnodes/Material.h"

class csMaterial;

class optMaterial : public Material {
public:
    explicit optMaterial(znInternal* pair);
    ~optMaterial() override;
    // Copies what changed, whatever the arguments; answers the csMaterial.
    int action(SFTime& time, int mode, void* state) override;

    csMaterial* getMaterial() const { return material.get(); }

private:
    csRefPtr<csMaterial> material;  // holds one reference
};

#endif
