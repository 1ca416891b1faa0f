// Node handles as compiled code holds them.
#include <gtest/gtest.h>

#include "fields/all.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "recording_browser.h"

using wrltest::RecordingBrowser;

TEST(HandleNull, DefaultHandleAnswersAsNoNode) {
    BaseNode handle;
    EXPECT_EQ(handle.isDirty(), 1);
    EXPECT_EQ(handle.getID(), 0);
    EXPECT_EQ(handle.getType(), nullptr);
    EXPECT_EQ(handle.getBrowser(), nullptr);
    EXPECT_EQ(handle.getUrlBase(), nullptr);
}

TEST(HandleCopy, CopyOwnsItsOwnPairAndAssigningNullReleasesIt) {
    RecordingBrowser browser;
    BaseNode a(new znInternal(&browser, nullptr));
    BaseNode b(a);
    EXPECT_NE(a.internal, b.internal);
    EXPECT_EQ(b.getBrowser(), &browser);
    b = BaseNode();
    EXPECT_EQ(b.internal, nullptr);
}

TEST(HandleScript, ShutdownForgetsBrowserAndNode) {
    RecordingBrowser browser;
    struct TestScript : Script {
        explicit TestScript(znInternal* p) : BaseNode(p) {}
    } script(new znInternal(&browser, nullptr));
    EXPECT_EQ(script.getBrowser(), &browser);
    script.shutdown();
    EXPECT_EQ(script.getBrowser(), nullptr);
}

TEST(HandleScript, ProcessEventsSkipsNullEntries) {
    struct Counting : Script {
        int seen = 0;
        void processEvent(Event&) override { ++seen; }
    } script;
    Event* events[3] = {nullptr, nullptr, nullptr};
    script.processEvents(3, events);
    script.processEvents(0, nullptr);
    EXPECT_EQ(script.seen, 0);
}

TEST(HandleNode, ForwardsToTheNode) {
    RecordingBrowser browser;
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

TEST(HandleBuiltin, NodeListSkipsNullHandles) {
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
