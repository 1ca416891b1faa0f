#include "csIndexedFaceSet.h"

CS_DEFINE_CLASS_TYPE(csIndexedFaceSet, csGeoSet)
