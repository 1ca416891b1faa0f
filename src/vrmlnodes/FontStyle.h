// How a text is set.
#ifndef FONTSTYLE_H
#define FONTSTYLE_H

#include "vrmlnodes/VRMLNodebase.h"

class FontStyle : public VRMLNode {
public:
    explicit FontStyle(znInternal* pair);
    ~FontStyle() override = default;
    // A font style builds nothing of its own; the back-end applies it to
    // the text that asks.
    int action(SFTime&, int, void*) override { return 0; }

protected:
    MFString* family;  // borrowed: the node's own field
    SFBool* horizontal;  // borrowed: the node's own field
    MFString* justify;  // borrowed: the node's own field
    SFString* language;  // borrowed: the node's own field
    SFBool* leftToRight;  // borrowed: the node's own field
    SFFloat* size;  // borrowed: the node's own field
    SFFloat* spacing;  // borrowed: the node's own field
    SFString* style;  // borrowed: the node's own field
    SFBool* topToBottom;  // borrowed: the node's own field
};

#endif
