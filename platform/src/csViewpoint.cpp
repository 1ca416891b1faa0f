#include "csViewpoint.h"

CS_DEFINE_CLASS_TYPE(csViewpoint, csNode)
