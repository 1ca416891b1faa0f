#include "optimizer/gfx_opt.h"

#include "csBackground.h"
#include "csEnvironment.h"
#include "csFog.h"
#include "csNavigationInfo.h"
#include "csViewpoint.h"
#include "csWorldInfo.h"

namespace {
// The object a node announces: its csNode, which must be a T.
template <class T>
T* announced(void* node) {
    auto* object = static_cast<csNode*>(node);
    return object && object->isOfType(T::getClassType()) ? static_cast<T*>(object) : nullptr;
}
}  // namespace

gfx_opt::gfx_opt(ZN* sys) : gfx(sys) { bound.makeEmpty(); }

gfx_opt::~gfx_opt() {
    for (csNode* node : topNodes) node->unref();
}

void gfx_opt::set_top_Node(csNode* node) {
    if (node == nullptr || root == nullptr) return;
    root->addChild(node);
    node->ref();
    topNodes.push_back(node);
}

csEnvironment* gfx_opt::getRoot() { return root; }

void gfx_opt::addViewpoint(void* node) {
    if (auto* viewpoint = announced<csViewpoint>(node); viewpoint && root)
        root->viewpoints().append(viewpoint);
}

void gfx_opt::bindViewpoint(void* node) {
    if (auto* viewpoint = announced<csViewpoint>(node); viewpoint && root && !root->getViewpoint())
        root->setViewpoint(viewpoint);
}

void gfx_opt::bindBackground(void* node) {
    if (auto* background = announced<csBackground>(node); background && root && !root->getBackground())
        root->setBackground(background);
}

void gfx_opt::bindFog(void* node) {
    if (auto* fog = announced<csFog>(node); fog && root && !root->getFog()) root->setFog(fog);
}

void gfx_opt::bindNavigationInfo(void* node) {
    if (auto* info = announced<csNavigationInfo>(node); info && root && !root->getNavigationInfo())
        root->setNavigationInfo(info);
}

void gfx_opt::addWorldInfo(void* node) {
    if (auto* info = announced<csWorldInfo>(node); info && root && !root->getWorldInfo())
        root->setWorldInfo(info);
}

const char* gfx_opt::getWorldInfoTitle() {
    csWorldInfo* info = root ? root->getWorldInfo() : nullptr;
    return info ? info->getTitle().c_str() : nullptr;
}

std::vector<std::string> gfx_opt::getWorldInfoInfo() {
    csWorldInfo* info = root ? root->getWorldInfo() : nullptr;
    return info ? info->getInfo() : std::vector<std::string>();
}
