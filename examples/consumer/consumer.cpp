// A program of its own built against an installed wrlLoader: it loads a
// world and counts the shapes of the scene that came back. CMakeLists.txt
// beside it builds it through find_package; README.md shows the same
// through pkg-config.
#include <csGroup.h>
#include <csRefPtr.h>
#include <csShape.h>
#include <wrlLoader.h>

#include <iostream>

namespace {

int countShapes(csNode* node) {
    if (node == nullptr) return 0;
    if (node->isOfType(csShape::getClassType())) return 1;
    if (!node->isOfType(csGroup::getClassType())) return 0;
    auto* group = static_cast<csGroup*>(node);
    int shapes = 0;
    for (int i = 0; i < group->getChildCount(); ++i) shapes += countShapes(group->getChild(i));
    return shapes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: consumer FILE\n";
        return 2;
    }
    wrlLoadOptions options;
    options.banner = false;
    wrlLoadResult result;
    csRefPtr<csNode> scene(wrlLoadWith(argv[1], &options, &result));
    if (!scene || result.status != WRL_LOADED) {
        std::cerr << "consumer: " << argv[1] << ": not loaded (" << result.reason << ")\n";
        return 1;
    }
    const int shapes = countShapes(scene.get());
    std::cout << argv[1] << ": " << shapes << " shapes, " << result.warnings << " warnings\n";
    // A load that found no Node Support file knows no node type: it would
    // build no shape and report every node.
    return shapes > 0 && result.warnings == 0 ? 0 : 1;
}
