#include "vrmlnodes/Text.h"

#include <vector>

Text::Text(znInternal* pair)
    : BaseNode(pair),
      string(exposedField<MFString>("string")),
      fontStyle(exposedField<SFNode>("fontStyle")),
      length(exposedField<MFFloat>("length")),
      maxExtent(exposedField<SFFloat>("maxExtent")),
      fontStyleObject(childOf(fontStyle)) {
    joinStrings();
}

void Text::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    switch (nameAt(name, 4)) {
        case 's': deliver(this, &Text::set_string, event); break;
        case 'f': deliver(this, &Text::set_fontStyle, event); break;
        case 'l': deliver(this, &Text::set_length, event); break;
        case 'm': deliver(this, &Text::set_maxExtent, event); break;
        default: break;
    }
}

void Text::joinStrings() {
    joinedText.clear();
    if (!string) return;
    std::vector<std::string> values;
    string->getValue(values);
    for (const std::string& value : values) {
        // A value may hold its terminating null; the text ends there.
        joinedText += value.c_str();
        joinedText += '\n';
    }
}

void Text::set_string(MFString& value, double) {
    assign(string, value);
    joinStrings();
    stringDirty = 1;
}

void Text::set_fontStyle(SFNode& value, double) {
    assign(fontStyle, value);
    fontStyleObject = childOf(fontStyle);
    fontStyleDirty = 1;
}

void Text::set_length(MFFloat& value, double) { assign(length, value); }

void Text::set_maxExtent(SFFloat& value, double) { assign(maxExtent, value); }
