// Shows at most one of its choices.
#ifndef SWITCH_H
#define SWITCH_H

#include <vector>

#include "vrmlnodes/VRMLNodebase.h"

class Switch : public VRMLNode {
public:
    explicit Switch(znInternal* pair);
    ~Switch() override = default;
    void processEvent(Event& event) override;

    virtual void set_choice(MFNode& value, double time);
    virtual void set_whichChoice(SFInt32& value, double time);

    const std::vector<Builtin*>& getChoiceObjects() const { return choiceObjects; }

protected:
    MFNode* choice;  // borrowed: the node's own field
    SFInt32* whichChoice;  // borrowed: the node's own field
    std::vector<Builtin*> choiceObjects;  // borrowed: the built-ins behind choice
    unsigned char choiceDirty = 0;
};

#endif
