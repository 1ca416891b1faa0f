#include "optimizer/optGroupingNode.h"

#include "csDirectionalLight.h"
#include "csEnvironment.h"
#include "csTransform.h"
#include "optimizer/gfx_opt.h"
#include "optimizer/optActionGuard.h"
#include "optimizer/optHandleTable.h"

namespace {
constexpr const char* kScopedLightingName = "Scoped Lighting for DirectionalLight";
}

csEnvironment* optGroupingNode::scopeLight(csNode* light, csGroup* owner) {
    auto* scope = new csEnvironment();
    scope->lights().append(light);
    scope->addChild(owner);
    return scope;
}

void optGroupingNode::attachTopLevel(gfx* graphics, csNode* owner) {
    if (auto* display = dynamic_cast<gfx_opt*>(graphics)) display->set_top_Node(owner);
}

int optGroupingNode::handleFor(csGroup* owner, csEnvironment* scope) {
    return scope ? optHandleTable::handleOf(scope) : optHandleTable::handleOf(owner);
}

int optGroupingNode::action(SFTime& time, int mode, void* incoming) {
    optActionGuard guard(this);
    if (!guard.entered()) return 0;
    if (!state) {
        state = new ActionState(static_cast<ActionState*>(incoming));
        state->group = group;
        if (childrenInlined) state->inlined = true;
        if (group && group->isOfType(csTransform::getClassType()))
            state->transforms.push_back(static_cast<csTransform*>(group));
    }
    if (childrenDirty) {
        rebuildChildren(time);
        childrenDirty = 0;
    }
    if (built) {
        if (mode == kActionRefresh || mode == kActionTopLevel)
            for (Builtin* child : childObjects) child->action(time, kActionRefresh, state);
    } else {
        if (mode == kActionTopLevel) attachTopLevel(graphics, group);
        built = 1;
    }
    return handleFor(group, environment);
}

void optGroupingNode::rebuildChildren(SFTime& time) {
    if (!group) return;
    removeAllChildren();
    for (Builtin* child : childObjects) {
        auto* node = optHandleTable::objectOf<csNode>(child->action(time, kActionFetch, state));
        if (!node) continue;
        // The group keeps a reference of its own beside the child list's,
        // given back in removeAllChildren.
        node->ref();
        group->addChild(node);
        if (!environment && node->isOfType(csDirectionalLight::getClassType())) {
            environment = scopeLight(node, group);
            environment->ref();
            environment->setStaticName(kScopedLightingName);
        }
    }
}

void optGroupingNode::removeAllChildren() {
    group->validateField(csGroup::CHILDREN);
    while (group->getChildCount() > 0) {
        csNode* child = group->getChild(0);
        group->removeChild(child);
        child->unref();
        group->validateField(csGroup::CHILDREN);
    }
}

optGroupingNode::~optGroupingNode() {
    delete state;
    if (environment) {
        if (group) environment->removeChild(group);
        environment->unref();
    }
    if (group) {
        removeAllChildren();
        group->unref();
    }
}
