#include "csEnvironment.h"

#include "csBackground.h"
#include "csFog.h"
#include "csNavigationInfo.h"
#include "csViewpoint.h"
#include "csWorldInfo.h"

CS_DEFINE_CLASS_TYPE(csEnvironment, csGroup)

// Defined here, where the held classes are complete.
csEnvironment::csEnvironment() = default;
csEnvironment::~csEnvironment() { _keeper.reset(); }

void csEnvironment::setViewpoint(csViewpoint* viewpoint) { _viewpoint.reset(viewpoint); }
void csEnvironment::setNavigationInfo(csNavigationInfo* info) { _navigationInfo.reset(info); }
void csEnvironment::setBackground(csBackground* background) { _background.reset(background); }
void csEnvironment::setFog(csFog* fog) { _fog.reset(fog); }
void csEnvironment::setWorldInfo(csWorldInfo* info) { _worldInfo.reset(info); }

csField* csEnvironment::getField(short number) {
    if (number == LIGHTS) return &_lights;
    if (number == VIEWPOINTS) return &_viewpoints;
    return csGroup::getField(number);
}
