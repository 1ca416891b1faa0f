// Compiled scripts: loading a shared object, finding its constructor, and the
// per-node script objects with their messages.
#include <gtest/gtest.h>

#include <string>

#include "behaviour_world.h"
#include "scripts/script_messages.h"
#include "vrmlnodes/GroupingNode.h"
#include "optimizer/opt_builtins.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;
using wrltest::BehaviourWorld;

namespace {

znCPP_SI* compiled(znNodeType& type) { return dynamic_cast<znCPP_SI*>(type.getInterface()); }

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace

TEST(CompiledScript, ScriptTypeBindsToTheConstructorOfItsSharedObject) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    ASSERT_NE(compiled(type), nullptr);
    EXPECT_EQ(compiled(type)->getFunctionName(), "counterInitialize");
    EXPECT_NE(compiled(type)->getScriptFn(), nullptr);
    EXPECT_EQ(type.getScriptID(), 1);
}

TEST(CompiledScript, InitializeTwiceReportsAndKeepsTheFirstScript) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    znNode* node = world.makeNode(type, "d00004+Twice");
    ASSERT_EQ(type.initialize(*node), 1);
    Builtin* first = type.getCPPScript(*node);
    std::string err = wrltest::stderrOf([&] { EXPECT_EQ(type.initialize(*node), 0); });
    char expected[512];
    std::snprintf(expected, sizeof expected, kCantInsertScript, "d00004+Twice");
    EXPECT_TRUE(has(err, expected)) << err;
    EXPECT_EQ(type.getCPPScript(*node), first);
}

TEST(CompiledScript, NodeNeverInitialisedIsReportedAndADisabledLanguageIsSilent) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    znNode* node = world.makeNode(type, "d00005+Lonely");
    CaptureStderr();
    type.shutdown(*node);
    type.eventsProcessed(*node);
    type.restore(*node, 0);
    std::string err = GetCapturedStderr();
    for (const char* call : {"shutdown", "eventsProcessed", "restore"})
        EXPECT_TRUE(has(err, std::string(call) + ", couldn't find script for node d00005+Lonely\n")) << err;
    SFTime time(0.0);
    EXPECT_EQ(type.action(*node, time, 1, nullptr), 0);

    world.system.scriptInterfaces->enable(1, 0);
    CaptureStderr();
    EXPECT_EQ(type.initialize(*node), 0);
    type.shutdown(*node);
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_EQ(type.getCPPScript(*node), nullptr);
}

TEST(CompiledScript, NodeMadeWhileItsLanguageWasOffStaysWithoutBehaviour) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Script", {COUNTER_SO});
    world.system.scriptInterfaces->enable(1, 0);
    znNode* before = world.makeNode(type, "d00006+Before");
    world.system.scriptInterfaces->enable(1, 1);
    znNode* after = world.makeNode(type, "d00007+After");
    EXPECT_EQ(before->isScriptEnabled(), 0);

    CaptureStderr();
    EXPECT_EQ(type.initialize(*before), 0);
    type.eventsProcessed(*before);
    type.restore(*before, 0);
    type.shutdown(*before);
    EXPECT_EQ(GetCapturedStderr(), "") << "no call reaches the script table";
    EXPECT_EQ(type.getCPPScript(*before), nullptr);
    SFTime time(0.0);
    EXPECT_EQ(type.action(*before, time, 1, nullptr), 0);

    EXPECT_EQ(type.initialize(*after), 1);
    EXPECT_NE(type.getCPPScript(*after), nullptr);
}

TEST(CompiledScript, FunctionIsNamedByTheInitTextOrTheTypeAndMissingPartsAreReported) {
    BehaviourWorld world;
    char init[] = "\"counterInitialize\"";
    znNodeType& named = world.makeType("Gadget", {COUNTER_SO}, {}, init);
    ASSERT_NE(compiled(named), nullptr);
    EXPECT_NE(compiled(named)->getScriptFn(), nullptr);

    CaptureStderr();
    znNodeType& unnamed = world.makeType("Gadget", {COUNTER_SO});
    world.makeType("Script", {"/nonexistent/dir/gone.so"});
    std::string err = GetCapturedStderr();
    EXPECT_TRUE(has(err, "Warning, could not locate function GadgetInitialize.\n")) << err;
    EXPECT_TRUE(has(err, "Warning, could not add dynamic library /nonexistent/dir/gone.so.\n")) << err;
    ASSERT_NE(compiled(unnamed), nullptr);
    EXPECT_EQ(compiled(unnamed)->getScriptFn(), nullptr);
    EXPECT_EQ(world.makeNode(unnamed)->initialize(), 0);
}

TEST(CompiledScript, StaticBuiltinIsFoundInTheLoadedImageAndShutdownForgetsIt) {
    BehaviourWorld world;
    znNodeType& type = world.makeType("Group", {"STATIC_BUILTIN.so"}, {{"children", MFNodeType, field, true}});
    ASSERT_NE(compiled(type), nullptr);
    EXPECT_EQ(reinterpret_cast<void*>(compiled(type)->getScriptFn()), reinterpret_cast<void*>(&GroupInitialize));
    znNode* node = world.makeNode(type);
    ASSERT_EQ(type.initialize(*node), 1);
    EXPECT_NE(dynamic_cast<GroupingNode*>(type.getCPPScript(*node)), nullptr);
    type.shutdown(*node);
    EXPECT_EQ(type.getCPPScript(*node), nullptr);
}
