#include "shown_scene.h"

#include <algorithm>

#include "csLOD.h"
#include "csMatrix4f.h"
#include "csShape.h"
#include "csSwitch.h"
#include "csTransform.h"

namespace {

void visitShown(csNode* node, const csMatrix4f& toRoot, std::vector<const csNode*>& path,
                const std::function<void(csShape*, const csMatrix4f&)>& visit) {
    if (node == nullptr || std::find(path.begin(), path.end(), node) != path.end()) return;
    if (node->isOfType(csShape::getClassType())) {
        visit(static_cast<csShape*>(node), toRoot);
        return;
    }
    if (!node->isOfType(csGroup::getClassType())) return;
    csMatrix4f matrix = toRoot;
    if (node->isOfType(csTransform::getClassType())) matrix.mult(static_cast<csTransform*>(node)->getMatrix(), toRoot);
    path.push_back(node);
    for (csNode* child : shownChildren(static_cast<csGroup*>(node))) visitShown(child, matrix, path, visit);
    path.pop_back();
}

}  // namespace

std::vector<csNode*> shownChildren(csGroup* group) {
    std::vector<csNode*> children;
    if (group == nullptr) return children;
    group->validateField(csGroup::CHILDREN);
    if (group->isOfType(csSwitch::getClassType())) {
        if (csNode* chosen = static_cast<csSwitch*>(group)->getSelectedChild()) children.push_back(chosen);
        return children;
    }
    const int count = group->isOfType(csLOD::getClassType()) ? std::min(group->getChildCount(), 1) : group->getChildCount();
    for (int i = 0; i < count; ++i)
        if (csNode* child = group->getChild(i)) children.push_back(child);
    return children;
}

void forEachShownShape(csNode* root, const std::function<void(csShape*, const csMatrix4f&)>& visit) {
    std::vector<const csNode*> path;
    visitShown(root, csMatrix4f(), path, visit);
}
