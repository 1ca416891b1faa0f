// How the viewer moves through the world: avatar size, navigation types,
// speed, headlight and visibility limit.
#ifndef NAVIGATIONINFO_H
#define NAVIGATIONINFO_H

#include "vrmlnodes/BindableNode.h"

class NavigationInfo : public BindableNode {
public:
    explicit NavigationInfo(znInternal* pair);
    ~NavigationInfo() override = default;
    void processEvent(Event& event) override;

protected:
    MFFloat* avatarSize;       // borrowed: the node's own field
    SFBool* headlight;         // borrowed: the node's own field
    SFFloat* speed;            // borrowed: the node's own field
    MFString* type;            // borrowed: the node's own field
    SFFloat* visibilityLimit;  // borrowed: the node's own field
    unsigned char valuesDirty = 1;
};

#endif
