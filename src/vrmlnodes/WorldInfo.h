// What a world says about itself: its title and lines of information.
#ifndef WORLDINFO_H
#define WORLDINFO_H

#include "vrmlnodes/VRMLNodebase.h"

class WorldInfo : public virtual VRMLNode {
public:
    explicit WorldInfo(znInternal* pair);
    ~WorldInfo() override = default;

protected:
    MFString* info;   // borrowed: the node's own field
    SFString* title;  // borrowed: the node's own field
};

#endif
