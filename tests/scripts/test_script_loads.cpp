// A compiled Script named by a world file: bound at load, ticked on the load
// frame, and reached by events.
#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "browser/zn_browser_intern.h"
#include "fields/zn_values.h"
#include "loader/wrl_loader.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "scripts/zn_event.h"
#include "behaviour_world.h"
#include "test_support.h"
#include "wrlLoader.h"

using wrltest::counterFn;

TEST(ScriptLoads, CompiledScriptOfAWorldIsBoundTickedAndReached) {
    wrltest::TempDir dir;
    // USE at the top puts the Script on the list of nodes that the load
    // frame ticks.
    std::string world = dir.write("script.wrl",
                                  "#VRML V2.0 utf8\n"
                                  "DEF S Script { url \"" COUNTER_SO "\"\n"
                                  "  eventIn SFTime set_time }\n"
                                  "USE S\n");
    wrltest::WorldLoad load = wrltest::loadWorld(world);
    ASSERT_NE(load.scene, nullptr);
    EXPECT_EQ(load.err.find("Warning"), std::string::npos) << load.err;

    auto* node = dynamic_cast<znNode*>(_ZNmain->browser->getNode("S"));
    ASSERT_NE(node, nullptr);
    Builtin* script = node->getCPPScript();
    ASSERT_NE(script, nullptr);
    // The load's scene update, then the frame's tick of the top-level list.
    EXPECT_EQ(counterFn<int (*)(Script*)>("counterActions")(script), 2);
    EXPECT_EQ(counterFn<int (*)(Script*)>("counterLastMode")(script), 2);

    SFTime now(3.0);
    wrltest::TestEvent event("set_time", now);
    node->processEvent(event);
    EXPECT_EQ(counterFn<int (*)(Script*)>("counterEvents")(script), 1);
    EXPECT_STREQ(counterFn<const char* (*)(Script*)>("counterLastEvent")(script), "set_time");
}

TEST(ScriptLoads, InlineScriptOfAnUnknownLanguageIsReportedAndLeftWithoutBehaviour) {
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp("ZN_TMP_PATH", dir.path().c_str());
    // A node's type is bound through the first URL of its list.
    std::string world = dir.write("inline.wrl",
                                  "#VRML V2.0 utf8\n"
                                  "DEF J Script { url [ \"javascript:ignored()\" \"" COUNTER_SO "\" ] }\n");
    wrltest::WorldLoad load = wrltest::loadWorld(world);
    ASSERT_NE(load.scene, nullptr);
    EXPECT_NE(load.err.find("SCRIPT INTERFACE WARNING:\n   \"javascript:\" inline script prefix not registered."),
              std::string::npos)
        << load.err;
    auto* node = dynamic_cast<znNode*>(_ZNmain->browser->getNode("J"));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getCPPScript(), nullptr);
}

// An exception out of a host's own code ends the load, reported, and leaves
// the process and its terminate handler as they were.
TEST(ScriptLoads, ScriptThatThrowsEndsTheLoadAndNotTheProcess) {
    wrltest::TempDir dir;
    wrltest::ScopedEnv builtins("ZNBUILTINS", wrltest::nodeSupportFile().c_str());
    std::string world = dir.write("throws.wrl",
                                  "#VRML V2.0 utf8\n"
                                  "DEF S Script { url \"" THROWER_SO "\" }\n"
                                  "USE S\n");
    const std::terminate_handler before = std::get_terminate();
    wrlLoadOptions options;
    options.banner = false;
    wrlLoadResult result;
    const std::string err =
        wrltest::stderrOf([&] { EXPECT_EQ(wrlLoadWith(world.c_str(), &options, &result), nullptr); });
    EXPECT_EQ(result.status, WRL_FAILED);
    EXPECT_EQ(result.reason, "a script that throws");
    EXPECT_NE(err.find("\nAlert:  Exception not caught.  The load ends.\n"), std::string::npos) << err;
    EXPECT_EQ(std::get_terminate(), before);
}
