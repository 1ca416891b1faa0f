#include "csPointLight.h"

CS_DEFINE_CLASS_TYPE(csPointLight, csLight)
