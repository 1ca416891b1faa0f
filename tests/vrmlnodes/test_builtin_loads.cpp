// Built-in classes behind the nodes of loaded worlds.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "browser/zn_browser_intern.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "test_support.h"
#include "vrmlnodes/VRMLNodebase.h"


namespace {

std::string behaviourFile(const char* name) { return std::string(WRL_TEST_DATA_DIR) + "/behaviour/" + name; }

// Loads through wrlLoad; the world lasts as long as the answer.
wrltest::WorldLoad load(const std::string& path) {
    wrltest::WorldLoad load = wrltest::loadWorld(path);
    EXPECT_NE(load.scene, nullptr);
    return load;
}

}  // namespace

TEST(BuiltinLoads, EveryBuiltInTypeOfAWorldHasItsObject) {
    const wrltest::WorldLoad world = load(behaviourFile("all_builtins.wrl"));
    const std::string& err = world.err;
    EXPECT_EQ(err.find("could not locate function"), std::string::npos) << err;
    const char* const names[] = {"G",  "T",  "SH", "AP", "MA", "IT", "TT", "IFS", "CO", "CL", "NO", "TC", "ILS",
                                 "PS", "BX", "CN", "CY", "SP", "TX", "FS",  "SW", "CO2", "PT", "EG", "MT", "EX",
                                 "LO", "BB", "AN", "IN", "DL", "PL", "SL",  "VP", "NI", "BG", "FG", "WI"};
    znBrowserIntern* browser = _ZNmain->browser;
    std::set<std::string> types;
    for (const char* name : names) {
        SCOPED_TRACE(name);
        auto* node = dynamic_cast<znNode*>(browser->getNode(name));
        ASSERT_NE(node, nullptr);
        auto* object = dynamic_cast<VRMLNode*>(node->getCPPScript());
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->getID(), node->getID());
        types.insert(node->getType());
    }
    EXPECT_EQ(types.size(), 38u);
}

TEST(BuiltinLoads, UnsupportedTypeAlertsOncePerTypeAndKeepsItsNodes) {
    const wrltest::WorldLoad world = load(behaviourFile("unsupported.wrl"));
    const std::string& err = world.err;
    EXPECT_EQ(wrltest::occurrences(err, "TimeSensor nodes not supported in this version."), 1) << err;
    EXPECT_EQ(wrltest::occurrences(err, "Sound nodes not supported in this version."), 1) << err;
    auto* clock = dynamic_cast<znNode*>(_ZNmain->browser->getNode("CLOCK2"));
    ASSERT_NE(clock, nullptr);
    EXPECT_EQ(clock->getCPPScript(), nullptr);
    char loop[32] = "";
    clock->getZnField(clock->getDataID("loop"))->getData(loop);
    EXPECT_STREQ(loop, "TRUE");
}
