#include "csCollision.h"

CS_DEFINE_CLASS_TYPE(csCollision, csGroup)
