#include "vrmlnodes/Color.h"

Color::Color(znInternal* pair)
    : BaseNode(pair),
      color(exposedField<MFColor>("color")) {}

void Color::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'c') deliver(this, &Color::set_color, event);
}

void Color::set_color(MFColor& value, double) {
    assign(color, value);
    colorDirty = 1;
}
