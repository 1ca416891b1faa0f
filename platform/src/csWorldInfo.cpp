#include "csWorldInfo.h"

CS_DEFINE_CLASS_TYPE(csWorldInfo, csNode)
