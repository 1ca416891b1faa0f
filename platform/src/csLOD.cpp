#include "csLOD.h"

CS_DEFINE_CLASS_TYPE(csLOD, csGroup)
