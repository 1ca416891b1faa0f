#include "optimizer/gfx_opt.h"

#include "csBackground.h"
#include "csEnvironment.h"
#include "csFog.h"
#include "csNavigationInfo.h"
#include "csViewpoint.h"
#include "csWorldInfo.h"
#include "loader/wrl_loader.h"

namespace {
// The object a node announces: its csNode, which must be a T.
template <class T>
T* announced(void* node) {
    auto* object = static_cast<csNode*>(node);
    return object && object->isOfType(T::getClassType()) ? static_cast<T*>(object) : nullptr;
}
}  // namespace

gfx_opt::gfx_opt(ZN* sys) : gfx(sys) { bound.makeEmpty(); }

void gfx_opt::set_top_Node(csNode* node) {
    if (node == nullptr || topSceneNode == nullptr) return;
    topSceneNode->addChild(node);
    node->ref();
}

csEnvironment* gfx_opt::getRoot() { return topSceneNode; }

void gfx_opt::addViewpoint(void* node) {
    if (auto* viewpoint = announced<csViewpoint>(node); viewpoint && topSceneNode)
        topSceneNode->viewpoints().append(viewpoint);
}

void gfx_opt::bindViewpoint(void* node) {
    if (auto* viewpoint = announced<csViewpoint>(node); viewpoint && topSceneNode && !topSceneNode->getViewpoint())
        topSceneNode->setViewpoint(viewpoint);
}

void gfx_opt::bindBackground(void* node) {
    if (auto* background = announced<csBackground>(node); background && topSceneNode && !topSceneNode->getBackground())
        topSceneNode->setBackground(background);
}

void gfx_opt::bindFog(void* node) {
    if (auto* fog = announced<csFog>(node); fog && topSceneNode && !topSceneNode->getFog()) topSceneNode->setFog(fog);
}

void gfx_opt::bindNavigationInfo(void* node) {
    if (auto* info = announced<csNavigationInfo>(node); info && topSceneNode && !topSceneNode->getNavigationInfo())
        topSceneNode->setNavigationInfo(info);
}

void gfx_opt::addWorldInfo(void* node) {
    if (auto* info = announced<csWorldInfo>(node); info && topSceneNode && !topSceneNode->getWorldInfo())
        topSceneNode->setWorldInfo(info);
}

const char* gfx_opt::getWorldInfoTitle() {
    csWorldInfo* info = topSceneNode ? topSceneNode->getWorldInfo() : nullptr;
    return info ? info->getTitle().c_str() : nullptr;
}

std::vector<std::string> gfx_opt::getWorldInfoInfo() {
    csWorldInfo* info = topSceneNode ? topSceneNode->getWorldInfo() : nullptr;
    return info ? info->getInfo() : std::vector<std::string>();
}
