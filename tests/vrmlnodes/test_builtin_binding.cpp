// Every type of the Node Support file with a class binds to it, and the
// types without one say so.
#include <gtest/gtest.h>

#include <dlfcn.h>

#include "support_types.h"
#include "vrmlnodes/VRMLNodebase.h"

using wrltest::BehaviourWorld;
using wrltest::SupportType;

TEST(BuiltinBinding, EveryTypeWithAClassBindsAndMakesItsObject) {
    BehaviourWorld world;
    std::vector<SupportType> types = wrltest::readSupportTypes();
    int bound = 0;
    for (SupportType& t : types) {
        if (t.url != "STATIC_BUILTIN.so") continue;
        SCOPED_TRACE(t.name);
        znNodeType& type = world.makeType(t.name.c_str(), {t.url.c_str()}, t.fields);
        auto* binding = dynamic_cast<znCPP_SI*>(type.getInterface());
        ASSERT_NE(binding, nullptr);
        void* expected = dlsym(RTLD_DEFAULT, (t.name + "Initialize").c_str());
        ASSERT_NE(expected, nullptr);
        EXPECT_EQ(reinterpret_cast<void*>(binding->getScriptFn()), expected);

        znNode* node = world.makeNode(type);
        ASSERT_EQ(node->initialize(), 1);
        auto* object = dynamic_cast<VRMLNode*>(node->getCPPScript());
        ASSERT_NE(object, nullptr);
        // The object and the node share one pair of browser and node.
        EXPECT_EQ(object->getID(), node->getID());
        // A fetch with a parent's state builds the node, whatever object
        // (or none) it answers.
        SFTime time(-1.0);
        ActionState state;
        node->action(time, kActionFetch, &state);
        EXPECT_EQ(object->isBuilt(), 1);
        ++bound;
    }
    EXPECT_EQ(bound, 22);
}

TEST(BuiltinBinding, UnsupportedTypesReportAndAlertOncePerType) {
    BehaviourWorld world;
    for (SupportType& t : wrltest::readSupportTypes()) {
        if (t.url != "NOT_SUPPORTED") continue;
        SCOPED_TRACE(t.name);
        std::vector<char> init(t.init.begin(), t.init.end());
        init.push_back('\0');
        testing::internal::CaptureStderr();
        znNodeType& type = world.makeType(t.name.c_str(), {t.url.c_str()}, t.fields, init.data());
        type.setSystemProto(1);
        type.printSupportMsg();
        type.printSupportMsg();
        std::string err = testing::internal::GetCapturedStderr();
        EXPECT_NE(err.find(t.name + " is not supported."), std::string::npos) << err;
        std::string alert = t.name + " nodes not supported in this version.";
        size_t first = err.find(alert);
        EXPECT_NE(first, std::string::npos) << err;
        EXPECT_EQ(err.find(alert, first + 1), std::string::npos) << "the alert comes once";
        EXPECT_EQ(type.getInterface(), nullptr);
        EXPECT_EQ(err.find("SCRIPT INTERFACE WARNING"), std::string::npos);
    }
}
