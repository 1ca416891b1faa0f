#include "optimizer/gfx_opt.h"

#include "csEnvironment.h"
#include "loader/wrl_loader.h"

gfx_opt::gfx_opt(ZN* sys) : gfx(sys) { bound.makeEmpty(); }

void gfx_opt::set_top_Node(csGroup* group) {
    if (group == nullptr || topSceneNode == nullptr) return;
    topSceneNode->addChild(group);
    group->ref();
}

csEnvironment* gfx_opt::getRoot() { return topSceneNode; }
