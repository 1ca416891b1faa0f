#include "opTessellateAction.h"

#include "csGroup.h"
#include "opRep.h"

CS_DEFINE_CLASS_TYPE(opTessellateAction, csObject)

int opTessellateAction::apply(csNode* node) {
    if (node == nullptr) return 0;
    if (node->isOfType(opRep::getClassType())) {
        auto* rep = static_cast<opRep*>(node);
        rep->validateField(csShape::GEOMETRY);
        if (rep->getGeometryCount() > 0 || !tessellate(rep)) return 0;
        rep->markTessellated();
        return 1;
    }
    if (!node->isOfType(csGroup::getClassType())) return 0;
    auto* group = static_cast<csGroup*>(node);
    group->validateField(csGroup::CHILDREN);
    int done = 0;
    for (int i = 0; i < group->getChildCount(); ++i) done += apply(group->getChild(i));
    return done;
}
