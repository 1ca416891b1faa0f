// Nodes, PROTO instances and routes of a world file, from the parser's calls
// through the database's records to the browser's tables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "browser/zn_sim_manager.h"
#include "database/zn_database_intern.h"
#include "fields/zn_exception.h"
#include "fields/zn_field.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "scripts/zn_cppsi.h"
#include "scripts/zn_scriptinterfaces.h"
#include "test_support.h"

using testing::HasSubstr;

namespace {

// The default manager, which keeps nothing, with the routes it was given.
class RouteRecorder : public znSimManager_default {
public:
    explicit RouteRecorder(znBrowserIntern* browser) : znSimManager_default(browser) {}
    void addRoute(int, char* from, int, char* to) override { routes.push_back(std::string(from) + " TO " + to); }
    std::vector<std::string> routes;
};

// A system object as the loader makes it, reading worlds from text.
class World {
public:
    World() : system(0), browser(*system.browser) {
        system.scriptInterfaces->add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
        browser.registerZNType(1);
        recorder = new RouteRecorder(&browser);
        browser.addSimManager(recorder);
        wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
        wrltest::stderrOf([&] { browser.init(); });
    }
    ~World() { znReleaseParts(system); }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    // Reads `text` as a whole world; answers what the load wrote on the
    // error stream.
    std::string load(const std::string& text) {
        std::string path = dir.write("world.wrl", "#VRML V2.0 utf8\n" + text);
        std::vector<const char*> urls{path.c_str()};
        // An unknown type asks for a correction: nobody answers.
        wrltest::ScopedStdin noAnswer("");
        return wrltest::stderrOf([&] { browser.readURL(urls, 0); });
    }

    znDatabaseIntern& database() { return *dynamic_cast<znDatabaseIntern*>(browser.getDatabase()); }
    int id(const char* stored) { return browser.getNodeID(stored); }
    znNode* node(const char* stored) { return browser.getNode(id(stored)); }
    znField* field(const char* stored, const char* name) {
        znNode* n = node(stored);
        return n->getZnField(n->getDataID(name));
    }
    std::string text(const char* stored, const char* name) {
        char buffer[256] = "";
        field(stored, name)->getData(buffer);
        return buffer;
    }

    wrltest::TempDir dir;
    ZN system;
    znBrowserIntern& browser;
    RouteRecorder* recorder;
};

// The field that an IS-bound field reads from.
znField* realOf(znField* bound) {
    std::vector<znField*> real;
    bound->getRealData(&real);
    return real.empty() ? nullptr : real.front();
}

const char* const kPostWorld = R"(
PROTO Post [ field SFColor color 1 0 0  exposedField SFVec3f where 0 0 0 ]
{
  DEF T Transform {
    translation IS where
    children [
      Shape {
        appearance Appearance { material DEF M Material { diffuseColor IS color } }
        geometry DEF B Box { size 1 2 1 }
      }
    ]
  }
  DEF TS TimeSensor { }
  ROUTE TS.fraction_changed TO M.set_transparency
}
DEF P1 Post { color 0 0 1 }
DEF P2 Post { where 1 0 0 }
Post { }
)";

}  // namespace

TEST(DatabaseNodes, DefUsedTwiceLeavesTheLatestNodeUnderTheName) {
    World world;
    world.load("DEF A Group { } DEF A Group { } USE A\n");
    EXPECT_EQ(world.database().lookupInstanceId("d00001+A"), world.id("d00001+A"));
    EXPECT_NE(world.id("d00000+A"), world.id("d00001+A"));
    // The USE at the top of the file ticks the second node once more.
    std::list<int> expected{world.id("d00000+A"), world.id("d00001+A"), world.id("d00001+A")};
    EXPECT_EQ(world.browser.getTopLevel(), expected);
}

TEST(DatabaseNodes, EachNodeKeepsItsOwnNameWhenALaterNodeTakesTheKey) {
    World world;
    // A node without DEF is named "Transform_0" too, and its name has the
    // same key as the DEF's: the later node takes the key, and each node
    // still prints as what it is.
    world.load("DEF Transform_0 Group { } Transform { } DEF Transform_0 Group { }\n");
    ASSERT_NE(world.browser.getNode(1), nullptr);
    EXPECT_STREQ(world.browser.getNode(1)->getName(), "d00000+Transform_0");
    EXPECT_STREQ(world.browser.getNode(2)->getName(), "x00000+Transform_0");
    EXPECT_STREQ(world.browser.getNode(3)->getName(), "d00001+Transform_0");
    EXPECT_EQ(world.id("x00000+Transform_0"), 2);
    std::ostringstream out;
    world.browser.getNode(2)->print(out);
    EXPECT_EQ(out.str().find("DEF"), std::string::npos) << out.str();
}

TEST(DatabaseNodes, EveryInstanceGetsTheBodyUnderNamesOfItsOwnBoundToItsFields) {
    World world;
    world.load(kPostWorld);
    // The body was read as six records, IDs 1 to 6 in the order the parser
    // finished them; the first instance takes exactly those IDs.
    EXPECT_EQ(world.id("d00000+M_1"), 1);
    EXPECT_EQ(world.id("d00000+B_1"), 3);
    EXPECT_EQ(world.id("d00000+T_1"), 5);
    EXPECT_EQ(world.id("d00000+TS_1"), 6);
    EXPECT_EQ(world.id("d00000+P1"), 7);
    // Later instances count on from the instance node.
    EXPECT_EQ(world.id("d00000+P2"), 8);
    EXPECT_EQ(world.id("d00000+M_2"), 9);
    EXPECT_EQ(world.id("d00000+T_3"), 20);
    // The instance's first body node at the top of the body stands for it.
    EXPECT_EQ(world.node("d00000+P1")->getFirstNode(), world.node("d00000+T_1"));
    EXPECT_EQ(world.node("d00000+P2")->getFirstNode(), world.node("d00000+T_2"));
    EXPECT_EQ(world.node("d00000+T_1")->getParent(), std::string("Post"));

    // Fields bound by IS read the instance's fields.
    znField* color = world.field("d00000+M_1", "diffuseColor");
    ASSERT_TRUE(color->isVirtual());
    EXPECT_EQ(realOf(color), world.field("d00000+P1", "color"));
    EXPECT_EQ(realOf(world.field("d00000+M_2", "diffuseColor")), world.field("d00000+P2", "color"));
    EXPECT_EQ(realOf(world.field("d00000+T_2", "translation")), world.field("d00000+P2", "where"));
    // A field not mentioned by the instance has the declared default.
    EXPECT_NE(world.text("d00000+P1", "color"), world.text("d00000+P2", "color"));
    EXPECT_EQ(world.text("d00000+P2", "color"), world.text("d00000+M_3", "diffuseColor"));
    EXPECT_EQ(world.text("d00000+B_3", "size"), world.text("d00000+B_1", "size"));

    // Node names in body values take the instance's suffix: the anonymous
    // Shape's geometry names the Box of its own instance.
    int shapes = 0;
    for (int id = 9; id <= 14; ++id) {
        znNode* n = world.browser.getNode(id);
        if (std::strcmp(n->getType(), "Shape") != 0) continue;
        char buffer[256] = "";
        n->getZnField(n->getDataID("geometry"))->getData(buffer);
        EXPECT_THAT(buffer, HasSubstr("B_2")) << buffer;
        ++shapes;
    }
    EXPECT_EQ(shapes, 1);

    // The PROTO declaration prints its first instance's body.
    std::ostringstream out;
    world.browser.writeURLtoStream(out);
    EXPECT_THAT(out.str(), HasSubstr("PROTO Post ["));
    EXPECT_THAT(out.str(), HasSubstr("DEF T_1  Transform {"));
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("T_2  Transform")));
}

TEST(DatabaseNodes, RoutesOfTheBodyConnectEachInstance) {
    World world;
    std::string err = world.load(std::string(kPostWorld) +
                                 "DEF S Script { eventIn SFFloat in eventOut SFFloat out }\n"
                                 "ROUTE S.nope TO S.in\n"
                                 "ROUTE S.out TO S.in\n");
    EXPECT_THAT(err, HasSubstr("BAD ROUTE:  nope not an eventOut for d00000+S"));
    std::vector<std::string> expected{"TS_1.fraction_changed TO M_1.set_transparency",
                                      "TS_2.fraction_changed TO M_2.set_transparency",
                                      "TS_3.fraction_changed TO M_3.set_transparency", "S.out TO S.in"};
    EXPECT_EQ(world.recorder->routes, expected);
}

TEST(DatabaseNodes, NestedInstanceBindsToTheEnclosingInstance) {
    World world;
    world.load(std::string(kPostWorld) +
               "PROTO Fence [ field SFColor tint 0 1 0 ] {\n"
               "  Group { children [ DEF Q Post { color IS tint } Post { where 2 0 0 } ] }\n"
               "}\n"
               "DEF F Fence { tint 1 1 0 }\n");
    znNode* fence = world.node("d00000+F");
    znNode* group = fence->getFirstNode();
    ASSERT_NE(group, nullptr);
    EXPECT_STREQ(group->getType(), "Group");
    // The nested instance is bound to the fence, and its body to it.
    znField* color = world.field("d00000+Q_4", "color");
    EXPECT_EQ(realOf(color), world.field("d00000+F", "tint"));
    znNode* nested = world.node("d00000+Q_4");
    znNode* body = nested->getFirstNode();
    ASSERT_NE(body, nullptr);
    EXPECT_STREQ(body->getType(), "Transform");
    // Each nested body has names of its own, and routes of its own.
    EXPECT_NE(world.id("d00000+M_5"), 0);
    EXPECT_NE(world.id("d00000+M_6"), 0);
    EXPECT_EQ(realOf(world.field("d00000+M_5", "diffuseColor")), color);
    EXPECT_EQ(world.recorder->routes.size(), 5u);
    EXPECT_EQ(world.recorder->routes.back(), "TS_6.fraction_changed TO M_6.set_transparency");
}

TEST(DatabaseNodes, InstanceTakesTheTopLevelMarkOfItsBodyAndANewWorldForgetsOldPrototypes) {
    World world;
    world.load("PROTO G [] { Group { } }\nPROTO N [] { Material { } }\nG { }\nN { }\n"
               "PROTO E [ field SFInt32 n 1 ] { }\nDEF X E { n 2 }\n");
    const std::list<int>& top = world.browser.getTopLevel();
    ASSERT_EQ(top.size(), 1u);
    EXPECT_STREQ(world.browser.getNode(top.front())->getType(), "G");
    // A prototype without a body has no expansion.
    EXPECT_EQ(world.node("d00000+X")->getFirstNode(), nullptr);
    EXPECT_EQ(world.text("d00000+X", "n"), "2");

    world.load("DEF P G { }\n");
    EXPECT_EQ(world.browser.getTopLevel().size(), 0u);
}

TEST(AddSuffix, EveryWordTakesTheSuffixNullIncluded) {
    char* out = znDatabaseIntern::addSuffix("[ x00000+Box_3,NULL, ]", 7);
    EXPECT_STREQ(out, "[x00000+Box_3_7,NULL_7,]");
    std::free(out);
    out = znDatabaseIntern::addSuffix("[]", 1);
    EXPECT_STREQ(out, "[]");
    std::free(out);
    // A long list grows by a suffix per word, well beyond a fixed margin.
    std::string many = "[";
    for (int i = 0; i < 200; ++i) many += "a,";
    many += "]";
    out = znDatabaseIntern::addSuffix(many.c_str(), 123456);
    EXPECT_EQ(std::string(out).size(), 2 + 200 * std::strlen("a_123456,"));
    std::free(out);
}

TEST(DatabaseRoutes, ListIsHandedOverAndTheNextRouteStartsANewOne) {
    World world;
    world.load("DEF A Group { } DEF B Group { } ROUTE A.children TO B.set_children\n");
    znDatabaseIntern& db = world.database();
    // The load's readRoutes took the list over.
    EXPECT_EQ(db.getRouteHead(), nullptr);
    char from[] = "Group", a[] = "d00000+A", out[] = "children", b[] = "d00000+B", in[] = "set_children";
    char* noParents[] = {nullptr};
    ASSERT_EQ(db.InsertRouteByName(from, a, out, from, b, in, noParents), 1);
    ASSERT_NE(db.getRouteHead(), nullptr);
    EXPECT_EQ(db.getRouteHead()->id, 1);
    EXPECT_EQ(db.getRouteHead()->fromNodeId, world.id("d00000+A"));
    char unknown[] = "d00000+Z";
    EXPECT_EQ(db.InsertRouteByName(from, unknown, out, from, b, in, noParents), 0);
    EXPECT_EQ(db.getRouteHead()->next, nullptr);
}
