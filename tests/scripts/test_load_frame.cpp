// The scene update of a load frame: new nodes are initialised through their
// type's interface and top-level nodes get `action` with mode 2. The parser
// and database are not involved: types and nodes enter the tables directly.
#include <gtest/gtest.h>

#include <dlfcn.h>

#include "behaviour_world.h"
#include "vrmlnodes/GroupingNode.h"

using wrltest::BehaviourWorld;
using wrltest::TestEvent;

namespace {

template <class F>
F counterFn(const char* name) {
    return reinterpret_cast<F>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace

TEST(LoadFrame, ScriptNodeIsInitialisedAndGetsTheTopLevelAction) {
    BehaviourWorld world;
    znBrowserIntern* browser = world.system.browser;
    std::vector<const char*> urls{"javascript:ignored()", COUNTER_SO};
    testing::internal::CaptureStderr();
    auto* type = new znNodeType(41, "Script", urls, browser, 0, 0, nullptr);
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("\"javascript:\" inline script prefix not registered."), std::string::npos) << err;
    browser->enterType(type);
    auto* node = new znNode(41, "d00041+Counter", type, browser);
    browser->enterNode(node);
    browser->addToToplevelList("d00041+Counter");

    browser->updateScene();

    Builtin* script = node->getCPPScript();
    ASSERT_NE(script, nullptr);
    auto actions = counterFn<int (*)(Script*)>("counterActions");
    ASSERT_NE(actions, nullptr);
    EXPECT_EQ(actions(script), 1);
    EXPECT_EQ(counterFn<int (*)(Script*)>("counterLastMode")(script), 2);

    SFTime now(3.0);
    TestEvent event("set_time", now);
    node->processEvent(event);
    EXPECT_EQ(counterFn<int (*)(Script*)>("counterEvents")(script), 1);
}

TEST(LoadFrame, BuiltinGroupNodeBindsOnTheFrame) {
    BehaviourWorld world;
    znBrowserIntern* browser = world.system.browser;
    std::vector<const char*> urls{"STATIC_BUILTIN.so"};
    auto* type = new znNodeType(42, "Group", urls, browser, 0, 0, nullptr);
    FieldFlags exposed;
    exposed.bits = FieldFlags::kExposed;
    type->addData("children", MFNodeType, field, exposed, nullptr);
    browser->enterType(type);
    auto* node = new znNode(42, "d00042+Top", type, browser);
    node->addData("children", MFNodeType, field, exposed, static_cast<const char*>(nullptr));
    browser->enterNode(node);
    browser->addToToplevelList("d00042+Top");

    browser->updateScene();

    auto* group = dynamic_cast<GroupingNode*>(node->getCPPScript());
    ASSERT_NE(group, nullptr);
    EXPECT_TRUE(group->getChildObjects().empty());
}
