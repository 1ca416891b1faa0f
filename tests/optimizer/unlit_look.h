// A shape's appearance for the tests of unlit geometry: lit and textured,
// with a material whose colours the test sets.
#ifndef WRL_UNLIT_LOOK_H
#define WRL_UNLIT_LOOK_H

#include "csAppearance.h"
#include "csMaterial.h"
#include "csRefPtr.h"

namespace wrltest {

struct UnlitLook {
    UnlitLook() {
        appearance.reset(new csAppearance());
        appearance->setLightEnable(1);
        appearance->setTexEnable(1);
        material = new csMaterial();
        appearance->setMaterial(material);
    }
    csRefPtr<csAppearance> appearance;
    csMaterial* material;  // borrowed: the appearance holds it
};

}  // namespace wrltest

#endif
