#include "vrmlnodes/LOD.h"

#include <cstring>

LOD::LOD(znInternal* pair)
    : BaseNode(pair), center(plainField<SFVec3f>("center")), range(plainField<MFFloat>("range")) {
    useChildrenField(exposedField<MFNode>("level"));
}

void LOD::processEvent(Event& event) {
    const char* name = event.getName();
    if (name && std::strcmp(name, "set_level") == 0) deliver<GroupingNode>(this, &GroupingNode::set_children, event);
}
