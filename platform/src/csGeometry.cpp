#include "csGeometry.h"

CS_DEFINE_CLASS_TYPE(csGeometry, csContainer)

void csGeometry::getBoxBound(csBoxBound* bound) const {
    if (bound) bound->makeEmpty();
}
