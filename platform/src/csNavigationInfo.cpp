#include "csNavigationInfo.h"

CS_DEFINE_CLASS_TYPE(csNavigationInfo, csNode)
