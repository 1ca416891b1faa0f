#include "vrmlnodes/Text.h"

#include <cstring>

Text::Text(znInternal* pair)
    : BaseNode(pair),
      string(exposedField<MFString>("string")),
      fontStyle(exposedField<SFNode>("fontStyle")),
      length(exposedField<MFFloat>("length")),
      maxExtent(exposedField<SFFloat>("maxExtent")),
      fontStyleObject(childOf(fontStyle)) {}

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

void Text::set_string(MFString& value, double) {
    assign(string, value);
    textDirty = 1;
}

void Text::set_fontStyle(SFNode& value, double) {
    assign(fontStyle, value);
    fontStyleObject = childOf(fontStyle);
    textDirty = 1;
}

void Text::set_length(MFFloat& value, double) {
    assign(length, value);
    textDirty = 1;
}

void Text::set_maxExtent(SFFloat& value, double) {
    assign(maxExtent, value);
    textDirty = 1;
}
