// Strings of text in a font style.
#ifndef TEXT_H
#define TEXT_H

#include <string>

#include "vrmlnodes/VRMLNodebase.h"

class Text : public VRMLNode {
public:
    explicit Text(znInternal* pair);
    ~Text() override = default;
    void processEvent(Event& event) override;

    void set_string(MFString& value, double time);
    void set_fontStyle(SFNode& value, double time);
    // Length and extent are kept, and no text is fitted to them.
    void set_length(MFFloat& value, double time);
    void set_maxExtent(SFFloat& value, double time);

    // Every string, each followed by a line feed.
    const std::string& getJoinedText() const { return joinedText; }

protected:
    MFString* string;  // borrowed: the node's own field
    SFNode* fontStyle;  // borrowed: the node's own field
    MFFloat* length;  // borrowed: the node's own field
    SFFloat* maxExtent;  // borrowed: the node's own field
    // Both up at construction, so that the first fetch shows the text.
    unsigned char stringDirty = 1;
    unsigned char fontStyleDirty = 1;
    Builtin* fontStyleObject;  // borrowed: the built-in behind fontStyle, or null
    std::string joinedText;

private:
    void joinStrings();
};

#endif
