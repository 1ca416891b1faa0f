// The back-end of Switch: a csSwitch over the node's choices that shows the
// one whichChoice names. Written apart from the grouping nodes, since a
// Switch keeps its children in `choice` and builds them only once.
#ifndef OPT_SWITCH_H
#define OPT_SWITCH_H

#include "vrmlnodes/Switch.h"

class csEnvironment;
class csSwitch;

class optSwitch : public Switch {
public:
    explicit optSwitch(znInternal* pair);
    ~optSwitch() override;
    // Answers the scoping environment when there is one, else the switch.
    int action(SFTime& time, int mode, void* state) override;

    // Empties the switch: the new choices are not fetched again.
    void set_choice(MFNode& value, double time) override;
    // Selects the child at once.
    void set_whichChoice(SFInt32& value, double time) override;

    csSwitch* getSwitch() const { return switchNode; }

private:
    void selectChoice();
    void build(SFTime& time, void* incoming);

    csSwitch* switchNode;                  // owning one reference
    csEnvironment* environment = nullptr;  // owning one reference; null until a light is scoped
    ActionState* state = nullptr;          // owning; made at the first build
};

#endif
