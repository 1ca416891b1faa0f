#include "csLight.h"

CS_DEFINE_CLASS_TYPE(csLight, csNode)
