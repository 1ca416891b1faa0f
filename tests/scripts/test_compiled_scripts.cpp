// Compiled scripts: loading a shared object, finding its constructor, and the
// per-node script objects with their messages.
#include <gtest/gtest.h>

#include <dlfcn.h>

#include <string>

#include "behaviour_world.h"
#include "scripts/script_messages.h"
#include "vrmlnodes/GroupingNode.h"
#include "vrmlnodes/builtin_initializers.h"

using wrltest::BehaviourWorld;
using wrltest::TestEvent;

namespace {

// The test object's own read-outs, found once it is loaded.
template <class F>
F counterFn(const char* name) {
    return reinterpret_cast<F>(dlsym(RTLD_DEFAULT, name));
}

std::string formatted(const char* format, const char* value) {
    char text[512];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

znCPP_SI* compiled(znNodeType& type) { return dynamic_cast<znCPP_SI*>(type.getInterface()); }

}  // namespace

TEST(CompiledScript, ScriptNodeBindsToItsSharedObject) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    ASSERT_NE(compiled(type), nullptr);
    EXPECT_EQ(compiled(type)->getFunctionName(), "counterInitialize");
    EXPECT_NE(compiled(type)->getScriptFn(), nullptr);
    EXPECT_EQ(type.getScriptID(), 1);

    znNode* node = world.makeNode(type);
    EXPECT_EQ(node->initialize(), 1);
    Builtin* script = node->getCPPScript();
    ASSERT_NE(script, nullptr);

    // The load frame reaches a top-level node with mode 2.
    SFTime time(-1.0);
    node->action(time, 2, nullptr);
    auto actions = counterFn<int (*)(Script*)>("counterActions");
    auto lastMode = counterFn<int (*)(Script*)>("counterLastMode");
    ASSERT_NE(actions, nullptr);
    EXPECT_EQ(actions(script), 1);
    EXPECT_EQ(lastMode(script), 2);

    SFBool on;
    on.setValue(1);
    TestEvent event("set_enabled", on);
    node->processEvent(event);
    EXPECT_EQ(counterFn<int (*)(Script*)>("counterEvents")(script), 1);
    EXPECT_STREQ(counterFn<const char* (*)(Script*)>("counterLastEvent")(script), "set_enabled");
}

TEST(CompiledScript, InitializeTwiceReportsAndKeepsTheFirstScript) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    znNode* node = world.makeNode(type, "d00004+Twice");
    ASSERT_EQ(type.initialize(*node), 1);
    Builtin* first = type.getCPPScript(*node);
    testing::internal::CaptureStderr();
    EXPECT_EQ(type.initialize(*node), 0);
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find(formatted(kCantInsertScript, "d00004+Twice")), std::string::npos) << err;
    EXPECT_EQ(type.getCPPScript(*node), first);
}

TEST(CompiledScript, MessagesForANodeNeverInitialised) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    znNode* node = world.makeNode(type, "d00005+Lonely");
    testing::internal::CaptureStderr();
    type.shutdown(*node);
    type.eventsProcessed(*node);
    type.restore(*node, 0);
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("shutdown, couldn't find script for node d00005+Lonely\n"), std::string::npos) << err;
    EXPECT_NE(err.find("eventsProcessed, couldn't find script for node d00005+Lonely\n"), std::string::npos);
    EXPECT_NE(err.find("restore, couldn't find script for node d00005+Lonely\n"), std::string::npos);
    SFTime time(0.0);
    EXPECT_EQ(type.action(*node, time, 1, nullptr), 0);
}

TEST(CompiledScript, DisabledLanguageMakesEveryCallANoOp) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    znNode* node = world.makeNode(type);
    world.system.scriptInterfaces->enable(1, 0);
    testing::internal::CaptureStderr();
    EXPECT_EQ(type.initialize(*node), 0);
    type.shutdown(*node);
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "");
    EXPECT_EQ(type.getCPPScript(*node), nullptr);
}

TEST(CompiledScript, QuotedInitTextNamesTheFunction) {
    BehaviourWorld world;
    char init[] = "\"counterInitialize\"";
    znNodeType& type = world.makeType("Gadget", {COUNTER_SO}, {}, init);
    ASSERT_NE(compiled(type), nullptr);
    EXPECT_EQ(compiled(type)->getFunctionName(), "counterInitialize");
    EXPECT_NE(compiled(type)->getScriptFn(), nullptr);
}

TEST(CompiledScript, MissingFunctionIsReported) {
    BehaviourWorld world;
    testing::internal::CaptureStderr();
    znNodeType& type = world.makeType("Gadget", {COUNTER_SO});
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("Warning, could not locate function GadgetInitialize.\n"), std::string::npos) << err;
    ASSERT_NE(compiled(type), nullptr);
    EXPECT_EQ(compiled(type)->getScriptFn(), nullptr);
    znNode* node = world.makeNode(type);
    EXPECT_EQ(node->initialize(), 0);
}

TEST(CompiledScript, MissingLibraryIsReported) {
    BehaviourWorld world;
    testing::internal::CaptureStderr();
    world.makeType("Script", {"/nonexistent/dir/gone.so"});
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("Warning, could not add dynamic library /nonexistent/dir/gone.so.\n"), std::string::npos)
        << err;
}

TEST(CompiledScript, StaticBuiltinIsFoundInTheLoadedImage) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Group", {"STATIC_BUILTIN.so"});
    ASSERT_NE(compiled(type), nullptr);
    EXPECT_EQ(reinterpret_cast<void*>(compiled(type)->getScriptFn()), reinterpret_cast<void*>(&GroupInitialize));
}

TEST(CompiledScript, UnregisteredInlinePrefixFallsThroughToTheNextURL) {
    BehaviourWorld world;
    testing::internal::CaptureStderr();
    znNodeType& type = world.makeType("Script", {"javascript:function f(){}", COUNTER_SO});
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_NE(err.find("SCRIPT INTERFACE WARNING:\n   \"javascript:\" inline script prefix not registered."),
              std::string::npos)
        << err;
    ASSERT_NE(compiled(type), nullptr);
    EXPECT_NE(compiled(type)->getScriptFn(), nullptr);
}

TEST(CompiledScript, BuiltinShutdownEndsTheObjectAndForgetsIt) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Group", {"STATIC_BUILTIN.so"},
                                      {{"children", MFNodeType, field, true}});
    znNode* node = world.makeNode(type);
    ASSERT_EQ(type.initialize(*node), 1);
    EXPECT_NE(dynamic_cast<GroupingNode*>(type.getCPPScript(*node)), nullptr);
    type.shutdown(*node);
    EXPECT_EQ(type.getCPPScript(*node), nullptr);
}
