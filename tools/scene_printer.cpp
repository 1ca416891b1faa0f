#include "scene_printer.h"

#include "csEnvironment.h"
#include "csGroup.h"

namespace {

void printObjectLine(std::ostream& out, const csObject* object, int depth) {
    for (int i = 0; i < depth; ++i) out << "  ";
    if (object == nullptr) {
        out << "NULL\n";
        return;
    }
    out << object->getType()->getName();
    if (object->getName() != nullptr) out << " \"" << object->getName() << '"';
    out << '\n';
}

void printNode(std::ostream& out, csNode* node, int depth) {
    printObjectLine(out, node, depth);
    if (node == nullptr || !node->isOfType(csGroup::getClassType())) return;
    auto* group = static_cast<csGroup*>(node);
    group->validateField(csGroup::CHILDREN);
    for (int i = 0; i < group->getChildCount(); ++i) printNode(out, group->getChild(i), depth + 1);
}

}  // namespace

void printSceneTree(std::ostream& out, csNode* root) {
    printNode(out, root, 0);
    if (root == nullptr || !root->isOfType(csEnvironment::getClassType())) return;
    const csMFRef& lights = static_cast<csEnvironment*>(root)->lights();
    out << "lights " << lights.getCount() << '\n';
    for (int i = 0; i < lights.getCount(); ++i) printObjectLine(out, lights.get(i), 1);
}
