#include "csSpotLight.h"

CS_DEFINE_CLASS_TYPE(csSpotLight, csPointLight)
