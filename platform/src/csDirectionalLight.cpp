#include "csDirectionalLight.h"

CS_DEFINE_CLASS_TYPE(csDirectionalLight, csLight)
