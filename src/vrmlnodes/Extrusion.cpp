#include "vrmlnodes/Extrusion.h"

Extrusion::Extrusion(znInternal* pair)
    : BaseNode(pair),
      beginCap(plainField<SFBool>("beginCap")),
      ccw(plainField<SFBool>("ccw")),
      convex(plainField<SFBool>("convex")),
      creaseAngle(plainField<SFFloat>("creaseAngle")),
      crossSection(plainField<MFVec2f>("crossSection")),
      endCap(plainField<SFBool>("endCap")),
      orientation(plainField<MFRotation>("orientation")),
      scale(plainField<MFVec2f>("scale")),
      solid(plainField<SFBool>("solid")),
      spine(plainField<MFVec3f>("spine")) {}

void Extrusion::processEvent(Event& event) {
    storeEvent(event, "set_crossSection", crossSection, sweepDirty) ||
        storeEvent(event, "set_orientation", orientation, sweepDirty) ||
        storeEvent(event, "set_scale", scale, sweepDirty) || storeEvent(event, "set_spine", spine, sweepDirty);
}
