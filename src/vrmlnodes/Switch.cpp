#include "vrmlnodes/Switch.h"

Switch::Switch(znInternal* pair)
    : BaseNode(pair),
      choice(exposedField<MFNode>("choice")),
      whichChoice(exposedField<SFInt32>("whichChoice")) {
    if (choice) Builtin::getBuiltin(*choice, choiceObjects);
}

void Switch::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'c')
        deliver(this, &Switch::set_choice, event);
    else if (nameAt(name, 4) == 'w')
        deliver(this, &Switch::set_whichChoice, event);
}

void Switch::set_choice(MFNode& value, double) {
    assign(choice, value);
    choiceObjects.clear();
    if (choice) Builtin::getBuiltin(*choice, choiceObjects);
    choiceDirty = 1;
}

void Switch::set_whichChoice(SFInt32& value, double) {
    assign(whichChoice, value);
    choiceDirty = 1;
}
