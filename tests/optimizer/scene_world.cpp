#include "scene_world.h"

#include <gtest/gtest.h>

#include "csImage.h"
#include "csIndexedFaceSet.h"
#include "csIndexedLineSet.h"
#include "csMaterial.h"
#include "csRefPtr.h"
#include "csTexture.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "browser/zn_browser_intern.h"
#include "nodes/zn_node.h"
#include "optimizer/optHandleTable.h"
#include "vrmlnodes/VRMLNodebase.h"

namespace {

void spanBox(csGeoSet* set, float bottom, float top) {
    auto* coords = new csCoordSet3f();
    coords->point().append(csVec3f(-5.0f, bottom, -5.0f));
    coords->point().append(csVec3f(5.0f, top, 5.0f));
    set->setCoordSet(coords);
}

class TestGeometry : public VRMLNode {
public:
    explicit TestGeometry(znInternal* pair)
        : BaseNode(pair),
          kind(exposedField<SFInt32>("kind")),
          bottom(exposedField<SFFloat>("bottom")),
          top(exposedField<SFFloat>("top")) {}

    int action(SFTime&, int, void* state) override {
        if (!built) build();
        built = 1;
        seen = wrltest::SeenState();
        if (auto* record = static_cast<ActionState*>(state)) {
            seen.seen = true;
            seen.group = record->group;
            seen.transforms.assign(record->transforms.begin(), record->transforms.end());
            seen.appearance = record->appearance;
        }
        return optHandleTable::handleOf(object.get());
    }

    wrltest::SeenState seen;

private:
    void build() {
        float low = bottom ? bottom->getValue() : 0.0f, high = top ? top->getValue() : 0.0f;
        switch (kind ? kind->getValue() : 0) {
            case wrltest::kColouredFaces:
            case wrltest::kPlainFaces: {
                auto* faces = new csIndexedFaceSet();
                spanBox(faces, low, high);
                if (kind->getValue() == wrltest::kColouredFaces) faces->setColorSet(new csColorSet4f(2));
                object.reset(faces);
                break;
            }
            case wrltest::kLines: {
                auto* lines = new csIndexedLineSet();
                spanBox(lines, low, high);
                object.reset(lines);
                break;
            }
            case wrltest::kNotGeometry: object.reset(new csMaterial()); break;
            default: break;
        }
    }

    SFInt32* kind;  // borrowed: the node's own field
    SFFloat* bottom;
    SFFloat* top;
    csRefPtr<csObject> object;
};

class TestTexture : public VRMLNode {
public:
    explicit TestTexture(znInternal* pair) : BaseNode(pair), components(exposedField<SFInt32>("components")) {
        texture.reset(new csTexture());
        int n = components ? components->getValue() : 3;
        texture->setFormat(static_cast<csTexture::FormatEnum>(n - 1));
        // One pixel, so that there is a picture to show.
        auto* image = new csImage();
        image->setWidth(1);
        image->setHeight(1);
        image->setMemoryFormat(static_cast<csImage::MemoryFormatEnum>(n - 1));
        image->pixels().setCount(n);
        texture->setImage(image);
    }
    int action(SFTime&, int, void*) override { return optHandleTable::handleOf(texture.get()); }

private:
    SFInt32* components;  // borrowed
    csRefPtr<csTexture> texture;
};

// Each test type is found as "<Type>Initialize" among the program's symbols.
const char* const kTestTypes = R"(
PROTO TestGeometry [
  exposedField SFInt32 kind 0
  exposedField SFFloat bottom 0
  exposedField SFFloat top 0
  field        MFString ZNurl "STATIC_BUILTIN.so"
] { }

PROTO TestTexture [
  exposedField SFInt32 components 3
  field        MFString ZNurl "STATIC_BUILTIN.so"
] { }
)";

}  // namespace

extern "C" Script* TestGeometryInitialize(znInternal* pair) { return new TestGeometry(pair); }
extern "C" Script* TestTextureInitialize(znInternal* pair) { return new TestTexture(pair); }

namespace wrltest {

SeenState stateSeenBy(Builtin* testGeometry) {
    auto* node = dynamic_cast<TestGeometry*>(testGeometry);
    return node ? node->seen : SeenState();
}

void expectVec3(const csVec3f& v, float x, float y, float z) {
    EXPECT_FLOAT_EQ(v[0], x);
    EXPECT_FLOAT_EQ(v[1], y);
    EXPECT_FLOAT_EQ(v[2], z);
}

std::string testNodeSupport() { return readFile(nodeSupportFile()) + kTestTypes; }

SceneLoad::SceneLoad() : builtins("ZNBUILTINS", dir.write("support.wrl", testNodeSupport()).c_str()) {}

csEnvironment* SceneLoad::load(const std::string& body) {
    return loadFile(dir.write("world" + std::to_string(++count) + ".wrl", "#VRML V2.0 utf8\n" + body));
}

csEnvironment* SceneLoad::loadFile(std::string path) {
    loads.push_back(loadWorld(path, ""));
    errors = loads.back().err;
    return static_cast<csEnvironment*>(loads.back().scene);
}

Builtin* SceneLoad::builtinNamed(const char* name) {
    auto* node = dynamic_cast<znNode*>(_ZNmain->browser->getNode(name));
    return node ? node->getCPPScript() : nullptr;
}

MFNode SceneLoad::nodesNamed(std::initializer_list<const char*> names) {
    std::vector<BaseNode> handles;
    for (const char* name : names) handles.push_back(*dynamic_cast<BaseNode*>(builtinNamed(name)));
    MFNode list;
    list.setValue(handles);
    return list;
}

}  // namespace wrltest
