#include "optimizer/opt_builtins.h"

#include <new>

#include "base/zn_app_interfaces.h"
#include "browser/zn_browser.h"
#include "optimizer/gfx.h"
#include "optimizer/optAnchor.h"
#include "optimizer/optAppearance.h"
#include "optimizer/optBackground.h"
#include "optimizer/optBillboard.h"
#include "optimizer/optBox.h"
#include "optimizer/optCollision.h"
#include "optimizer/optColor.h"
#include "optimizer/optCone.h"
#include "optimizer/optCoordinate.h"
#include "optimizer/optCylinder.h"
#include "optimizer/optDirectionalLight.h"
#include "optimizer/optElevationGrid.h"
#include "optimizer/optExtrusion.h"
#include "optimizer/optFog.h"
#include "optimizer/optFontStyle.h"
#include "optimizer/optGroup.h"
#include "optimizer/optImageTexture.h"
#include "optimizer/optIndexedFaceSet.h"
#include "optimizer/optIndexedLineSet.h"
#include "optimizer/optInline.h"
#include "optimizer/optLOD.h"
#include "optimizer/optMaterial.h"
#include "optimizer/optMovieTexture.h"
#include "optimizer/optNavigationInfo.h"
#include "optimizer/optNormal.h"
#include "optimizer/optPixelTexture.h"
#include "optimizer/optPointLight.h"
#include "optimizer/optPointSet.h"
#include "optimizer/optShape.h"
#include "optimizer/optSphere.h"
#include "optimizer/optSpotLight.h"
#include "optimizer/optSwitch.h"
#include "optimizer/optText.h"
#include "optimizer/optTextureCoordinate.h"
#include "optimizer/optTextureTransform.h"
#include "optimizer/optTransform.h"
#include "optimizer/optViewpoint.h"
#include "optimizer/optWorldInfo.h"

namespace {

constexpr const char* kGraphicsClass = "gfx";

// The graphics interface of the node's system, found by its class word.
gfx* graphicsOf(Script* script) {
    auto* node = dynamic_cast<VRMLNode*>(script);
    Browser* browser = node != nullptr ? node->getBrowser() : nullptr;
    znAppInterfaces* applications = browser != nullptr ? browser->getAppInterfaces() : nullptr;
    return applications != nullptr ? dynamic_cast<gfx*>(applications->getClassInterface(kGraphicsClass)) : nullptr;
}

template <class T>
Script* make(znInternal* pair) {
    T* object = new (std::nothrow) T(pair);
    if (object != nullptr) object->setGraphics(graphicsOf(object));
    return static_cast<Script*>(object);
}

}  // namespace

extern "C" {
#define WRL_DEFINE_INITIALIZER(Type) \
    Script* Type##Initialize(znInternal* pair) { return make<opt##Type>(pair); }
WRL_BUILTIN_TYPES(WRL_DEFINE_INITIALIZER)
#undef WRL_DEFINE_INITIALIZER
}
