#include "csEnvironment.h"

CS_DEFINE_CLASS_TYPE(csEnvironment, csGroup)

csField* csEnvironment::getField(short number) {
    if (number == LIGHTS) return &_lights;
    return csGroup::getField(number);
}
