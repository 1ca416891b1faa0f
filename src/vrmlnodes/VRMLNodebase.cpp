#include "vrmlnodes/VRMLNodebase.h"

#include "browser/zn_browser.h"
#include "loader/zn.h"
#include "loader/zn_interfaces.h"
#include "optimizer/gfx.h"

namespace {
constexpr const char* kGraphicsClass = "gfx";
// A node's stored name is "%c%05d+%s": the kind, a number, then the VRML
// name. Kinds `d` and `u` carry a DEF name; `x` names an anonymous node
// after its type, which is no name to show.
constexpr size_t kPlainNameOffset = 7;
bool hasDefName(const char* stored) {
    return stored && (stored[0] == 'd' || stored[0] == 'u') && std::strlen(stored) > kPlainNameOffset;
}
}  // namespace

VRMLNode::VRMLNode() {
    Browser* browser = BaseNode::getBrowser();
    ZN* system = browser ? browser->getZN() : nullptr;
    if (system && system->appInterfaces)
        graphics = dynamic_cast<gfx*>(system->appInterfaces->getClassInterface(kGraphicsClass));
}

const char* VRMLNode::sceneName(const char* unnamed) {
    const char* stored = Builtin::getName(internal);
    return hasDefName(stored) ? stored + kPlainNameOffset : unnamed;
}

void VRMLNode::shutdown() { delete this; }
