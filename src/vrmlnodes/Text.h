// Strings of text in a font style.
#ifndef TEXT_H
#define TEXT_H

#include "vrmlnodes/VRMLNodebase.h"

class Text : public VRMLNode {
public:
    explicit Text(znInternal* pair);
    ~Text() override = default;
    void processEvent(Event& event) override;

    void set_string(MFString& value, double time);
    void set_fontStyle(SFNode& value, double time);
    void set_length(MFFloat& value, double time);
    void set_maxExtent(SFFloat& value, double time);

protected:
    MFString* string;  // borrowed: the node's own field
    SFNode* fontStyle;  // borrowed: the node's own field
    MFFloat* length;  // borrowed: the node's own field
    SFFloat* maxExtent;  // borrowed: the node's own field
    Builtin* fontStyleObject;  // borrowed: the built-in behind fontStyle, or null
    unsigned char textDirty = 0;
};

#endif
