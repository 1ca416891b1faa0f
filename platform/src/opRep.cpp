#include "opRep.h"

CS_DEFINE_CLASS_TYPE(opRep, csShape)

void opRep::parametersChanged() {
    if (!_tessellated) return;
    while (getGeometryCount() > 0) removeGeometry(0);
    _tessellated = false;
}
