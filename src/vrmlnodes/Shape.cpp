#include "vrmlnodes/Shape.h"

Shape::Shape(znInternal* pair)
    : BaseNode(pair),
      appearance(exposedField<SFNode>("appearance")),
      geometry(exposedField<SFNode>("geometry")),
      appearanceObject(childOf(appearance)),
      geometryObject(childOf(geometry)) {}

void Shape::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (nameAt(name, 4) == 'a')
        deliver(this, &Shape::set_appearance, event);
    else if (nameAt(name, 4) == 'g')
        deliver(this, &Shape::set_geometry, event);
}

int Shape::action(SFTime& time, int, void* state) {
    if (appearanceObject) appearanceObject->action(time, kActionRefresh, state);
    if (geometryObject) geometryObject->action(time, kActionRefresh, state);
    return 0;
}

void Shape::set_appearance(SFNode& value, double) {
    assign(appearance, value);
    appearanceObject = childOf(appearance);
    appearanceDirty = 1;
}

void Shape::set_geometry(SFNode& value, double) {
    assign(geometry, value);
    geometryObject = childOf(geometry);
    geometryDirty = 1;
}
