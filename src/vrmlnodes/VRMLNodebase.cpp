#include "vrmlnodes/VRMLNodebase.h"

#include "browser/zn_browser.h"
#include "loader/zn.h"
#include "loader/zn_interfaces.h"
#include "optimizer/gfx.h"

namespace {
constexpr const char* kGraphicsClass = "gfx";
}

VRMLNode::VRMLNode() {
    Browser* browser = BaseNode::getBrowser();
    ZN* system = browser ? browser->getZN() : nullptr;
    if (system && system->appInterfaces)
        graphics = dynamic_cast<gfx*>(system->appInterfaces->getClassInterface(kGraphicsClass));
}

void VRMLNode::shutdown() { delete this; }
