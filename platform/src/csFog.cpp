#include "csFog.h"

CS_DEFINE_CLASS_TYPE(csFog, csNode)
