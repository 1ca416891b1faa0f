#include "csLineStripSet.h"

CS_DEFINE_CLASS_TYPE(csLineStripSet, csGeoSet)
