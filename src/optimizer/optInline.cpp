#include "optimizer/optInline.h"

#include "csInline.h"
#include "optimizer/optSceneName.h"

optInline::optInline(znInternal* pair) : BaseNode(pair), Inline(pair) {
    auto* node = new csInline();
    group = node;
    group->ref();
    nameInScene(group, *this, "Unnamed Inline Node");
    childrenInlined = true;
    node->setUrl(textsOf(url));
    if (bboxCenter) node->setBboxCenter(bboxCenter->getX(), bboxCenter->getY(), bboxCenter->getZ());
    if (bboxSize) node->setBboxSize(bboxSize->getX(), bboxSize->getY(), bboxSize->getZ());
}

void optInline::set_url(MFString& value, double time) {
    Inline::set_url(value, time);
    static_cast<csInline*>(group)->setUrl(textsOf(url));
}

int optInline::action(SFTime& time, int mode, void* state) {
    if (!hasRead()) readChildren();
    Building building(*this);
    return optGroupingNode::action(time, mode, state);
}
