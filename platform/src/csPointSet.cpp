#include "csPointSet.h"

CS_DEFINE_CLASS_TYPE(csPointSet, csGeoSet)
