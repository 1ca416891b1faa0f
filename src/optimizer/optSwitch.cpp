#include "optimizer/optSwitch.h"

#include "csDirectionalLight.h"
#include "csEnvironment.h"
#include "csSwitch.h"
#include "optimizer/optActionGuard.h"
#include "optimizer/optGroupingNode.h"
#include "optimizer/optHandleTable.h"
#include "optimizer/optSceneName.h"

optSwitch::optSwitch(znInternal* pair) : BaseNode(pair), Switch(pair), switchNode(new csSwitch()) {
    switchNode->ref();
    nameInScene(switchNode, *this, "Unnamed Switch Node");
}

int optSwitch::action(SFTime& time, int mode, void* incoming) {
    optActionGuard guard(this);
    if (!guard.entered()) return 0;
    if ((mode == kActionFetch || mode == kActionTopLevel) && !built) {
        build(time, incoming);
        if (mode == kActionTopLevel) optGroupingNode::attachTopLevel(graphics, switchNode);
        built = 1;
    } else if ((mode == kActionRefresh || mode == kActionTopLevel) && built) {
        for (Builtin* child : choiceObjects) child->action(time, kActionRefresh, state);
    }
    return optGroupingNode::handleFor(switchNode, environment);
}

void optSwitch::build(SFTime& time, void* incoming) {
    state = new ActionState(static_cast<ActionState*>(incoming));
    state->group = switchNode;
    for (Builtin* child : choiceObjects) {
        // Only nodes can stand in a switch; anything else is passed over.
        auto* node = optHandleTable::objectOf<csNode>(child->action(time, kActionFetch, state));
        if (!node) continue;
        switchNode->addChild(node);
        if (!environment && node->isOfType(csDirectionalLight::getClassType())) {
            environment = optGroupingNode::scopeLight(node, switchNode);
            environment->ref();
        }
    }
    selectChoice();
}

void optSwitch::selectChoice() {
    int which = whichChoice ? whichChoice->getValue() : -1;
    switchNode->validateField(csGroup::CHILDREN);
    switchNode->setWhichChild(which >= 0 && switchNode->getChildCount() > 0 ? which : csSwitch::NO_CHILDREN);
}

void optSwitch::set_choice(MFNode& value, double time) {
    Switch::set_choice(value, time);
    switchNode->validateField(csGroup::CHILDREN);
    while (switchNode->getChildCount() > 0) switchNode->removeChild(switchNode->getChildCount() - 1);
    switchNode->setChildCount(0);
}

void optSwitch::set_whichChoice(SFInt32& value, double time) {
    Switch::set_whichChoice(value, time);
    selectChoice();
}

optSwitch::~optSwitch() {
    delete state;
    if (environment) {
        environment->removeChild(switchNode);
        environment->unref();
    }
    switchNode->unref();
}
