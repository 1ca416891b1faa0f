#include "csSwitch.h"

CS_DEFINE_CLASS_TYPE(csSwitch, csGroup)
