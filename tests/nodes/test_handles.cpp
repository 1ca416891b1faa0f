// Node handles as compiled code holds them.
#include <gtest/gtest.h>

#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "recording_browser.h"

using wrltest::RecordingBrowser;

TEST(Handle, CopiesOwnTheirPairAndForwardToTheNode) {
    RecordingBrowser browser;
    BaseNode none;
    EXPECT_EQ(none.getID(), 0);
    EXPECT_EQ(none.getType(), nullptr);
    BaseNode a(new znInternal(&browser, nullptr));
    BaseNode b(a);
    EXPECT_NE(a.internal, b.internal);
    EXPECT_EQ(b.getBrowser(), &browser);
    b = BaseNode();
    EXPECT_EQ(b.internal, nullptr);

    std::vector<const char*> urls;
    znNodeType type(1, "Thing", urls, &browser, 0, 0, nullptr);
    auto* node = new znNode(7, "d00000+N", &type, &browser);
    BaseNode handle(*node);
    EXPECT_EQ(handle.getID(), 7);
    EXPECT_STREQ(handle.getType(), "Thing");
    node->makeClean();
    EXPECT_EQ(handle.isDirty(), 0);
    handle.makeDirty();
    EXPECT_EQ(node->isDirty(), 1);
    delete node;
}

TEST(Handle, ScriptShutdownForgetsTheBrowserAndNullEventsAreSkipped) {
    RecordingBrowser browser;
    struct Counting : Script {
        explicit Counting(znInternal* p) : BaseNode(p) {}
        int seen = 0;
        void processEvent(Event&) override { ++seen; }
    } script(new znInternal(&browser, nullptr));
    Event* events[3] = {nullptr, nullptr, nullptr};
    script.processEvents(3, events);
    script.processEvents(0, nullptr);
    EXPECT_EQ(script.seen, 0);
    EXPECT_EQ(script.getBrowser(), &browser);
    script.shutdown();
    EXPECT_EQ(script.getBrowser(), nullptr);
}

TEST(Handle, NodeListSkipsNullHandles) {
    RecordingBrowser browser;
    std::vector<const char*> urls;
    znNodeType type(1, "Thing", urls, &browser, 0, 0, nullptr);
    znNode a(1, "d00000+A", &type, &browser), b(2, "d00000+B", &type, &browser);
    MFNode list;
    BaseNode ha(a), none, hb(b);
    list.addValue(ha);
    list.addValue(none);
    list.addValue(hb);
    std::vector<Builtin*> found;
    Builtin::getBuiltin(list, found);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[1], static_cast<Builtin*>(&b));
    SFNode empty;
    EXPECT_EQ(Builtin::getBuiltin(empty), nullptr);
}
