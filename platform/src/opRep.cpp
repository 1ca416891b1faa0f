#include "opRep.h"

CS_DEFINE_CLASS_TYPE(opRep, csShape)

opRep* opRep::makeInstance() {
    opRep* instance = copyParameters();
    instance->setName(getName());
    validateField(GEOMETRY);
    for (int i = 0; i < getGeometryCount(); ++i) instance->addGeometry(getGeometry(i));
    instance->_tessellated = _tessellated;
    return instance;
}

void opRep::parametersChanged() {
    if (!_tessellated) return;
    while (getGeometryCount() > 0) removeGeometry(0);
    _tessellated = false;
}
