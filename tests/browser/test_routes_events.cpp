// Routes by ID and from the database, route deletion, observers, posting
// with "now", and the event callback.
#include <gtest/gtest.h>

#include <string>

#include "test_support.h"
#include "browser/zn_browser_event.h"
#include "browser_fixture.h"
#include "fields/zn_exception.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;
using wrltest::BrowserFixture;
using wrltest::NodeChain;

namespace {

class Routes : public BrowserFixture {
protected:
    void SetUp() override {
        thing(chain, 1, "d00000+src");
        thing(chain, 2, "d00000+dst");
        ASSERT_EQ(browser.addNode(chain.head), 1);
        manager->calls.clear();
    }
    // The exception text of `addRouteByID`, with what it printed.
    template <class E>
    std::string thrownText(int from, int to, const char* out, const char* in) {
        std::string text;
        CaptureStderr();
        try {
            browser.addRouteByID(1, from, to, const_cast<char*>(out), const_cast<char*>(in));
        } catch (E& e) {
            text = e.text;
        }
        GetCapturedStderr();
        return text;
    }
    NodeChain chain;
};

}  // namespace

// --- Routes that throw -----------------------------------------------------------------

TEST_F(Routes, GoodRouteReachesTheManagerWithPlainNames) {
    browser.addRouteByID(1, 1, 2, const_cast<char*>("value_out"), const_cast<char*>("set_value"));
    ASSERT_EQ(manager->calls.size(), 1u);
    EXPECT_EQ(manager->calls[0].what, "addRoute");
    // Without a route table every eventOut shares index 1.
    EXPECT_EQ(manager->calls[0].a, 1);
    EXPECT_EQ(manager->calls[0].b, 1);
    EXPECT_EQ(manager->calls[0].from, "src.value_out");
    EXPECT_EQ(manager->calls[0].to, "dst.set_value");
}

TEST_F(Routes, BadRoutesThrowWithTheirTexts) {
    EXPECT_EQ(thrownText<InvalidRouteException>(9, 2, "value_out", "set_value"),
              "Bad route due to invalid source node ID: 9");
    EXPECT_EQ(thrownText<InvalidRouteException>(1, 9, "value_out", "set_value"),
              "Bad route due to invalid destination node ID: 9");
    EXPECT_EQ(thrownText<InvalidEventOutException>(1, 2, "nothing", "set_value"),
              "Invalid eventOut name nothing in route\n");
    EXPECT_EQ(thrownText<InvalidEventInException>(1, 2, "value_out", "nothing"),
              "Invalid eventIn name nothing in route\n");
    EXPECT_EQ(thrownText<InvalidEventInException>(1, 2, "value_out", "value"),
              "EventIn not in eventIn table for route\n");
    EXPECT_TRUE(manager->calls.empty());
}

TEST_F(Routes, ScriptRouteTakesTheNextRouteNumber) {
    znNode* from = browser.getNode(1);
    znNode* to = browser.getNode(2);
    browser.addRoute(*from, "value_out", *to, "set_value");
    EXPECT_EQ(database->nextRouteID(), 2);
}

// --- Routes of a load -------------------------------------------------------------------

TEST_F(Routes, LoadReportsBadRoutesAndGoesOn) {
    database->add(1, 9, "value_out", 2, "set_value");
    database->add(2, 1, "value_out", 9, "set_value");
    database->add(3, 1, "nothing", 2, "set_value");
    database->add(4, 1, "value_out", 2, "nothing");
    database->add(5, 1, "value_out", 2, "value");
    database->add(6, 1, "value_out", 2, "set_value");
    EXPECT_EQ(wrltest::stderrOf([&] { browser.readRoutes(nullptr); }),
              "\nThrowing Exception: Invalid Node ID:  ID=9\n"
              "\nAlert:  Skipping route due to invalid source node ID: 9\n\n"
              "\nThrowing Exception: Invalid Node ID:  ID=9\n"
              "\nAlert:  Skippign route due to invalid destination node ID: 9\n\n"
              "\nMessage:  Invalid eventOut name nothing in route\n"
              "\nMessage:  Invalid eventIn name nothing in route\n"
              "\nMessage:  EventIn not in eventIn table for route\n");
    ASSERT_EQ(manager->calls.size(), 1u);
    EXPECT_EQ(manager->calls[0].to, "dst.set_value");
    EXPECT_EQ(database->head, nullptr);
}

TEST_F(Routes, VirtualSourceEntersOneRoutePerRealField) {
    NodeChain more;
    thing(more, 3, "d00000+a");
    thing(more, 4, "d00000+b");
    thing(more, 5, "d00000+c");
    more.node(1, 6, "d00000+instance");
    more.field("value_out", SFFloatType, eventOut, "", 3, {"value_out"});
    ASSERT_EQ(browser.addNode(more.head), 1);
    znNode* instance = browser.getNode(6);
    znField* out = instance->getZnField(instance->getDataID("value_out"));
    // Two more targets behind the one the record named.
    std::vector<znField*> extra{browser.getNode(4)->getZnField(2), browser.getNode(5)->getZnField(2)};
    out->addRemoteData(&extra);
    manager->calls.clear();
    browser.addRouteByID(1, 6, 2, const_cast<char*>("value_out"), const_cast<char*>("set_value"));
    ASSERT_EQ(manager->calls.size(), 3u);
    for (auto& call : manager->calls) EXPECT_EQ(call.to, "dst.set_value");
}

// --- Deleting routes and observers -------------------------------------------------------

// A route that never existed, or with a bad destination, is reported; an
// entered one reaches the manager.
TEST_F(Routes, DeleteOfAnEnteredRouteReachesTheManagerAndOthersAreReported) {
    EXPECT_EQ(wrltest::stderrOf(
                  [&] { browser.deleteRoute(*browser.getNode(1), "value_out", *browser.getNode(2), "set_value"); }),
              "\nMessage:  Unable to add eventOut to routeTable\n");
    EXPECT_TRUE(manager->calls.empty());
    browser.addRouteByID(1, 1, 2, const_cast<char*>("value_out"), const_cast<char*>("set_value"));
    manager->calls.clear();
    browser.deleteRoute(*browser.getNode(1), "value_out", *browser.getNode(2), "set_value");
    ASSERT_EQ(manager->calls.size(), 1u);
    EXPECT_EQ(manager->calls[0].what, "deleteRoute");
    BaseNode nobody;
    EXPECT_EQ(wrltest::stderrOf([&] { browser.deleteRoute(*browser.getNode(1), "value_out", nobody, "set_value"); }),
              "\nThrowing Exception: Invalid Node ID:  ID=0\n"
              "\nAlert:  Skipping route due to invalid destination node ID:0\n\n");
}

TEST_F(Routes, ObserversGetTheSharedIndexOrAReport) {
    browser.addObserver(*browser.getNode(1), const_cast<char*>("value_out"), nullptr, nullptr, nullptr);
    ASSERT_EQ(manager->calls.size(), 1u);
    EXPECT_EQ(manager->calls[0].a, 1);
    EXPECT_EQ(wrltest::stderrOf([&] {
                  browser.addObserver(*browser.getNode(1), const_cast<char*>("gone"), nullptr, nullptr, nullptr);
              }),
              "\nMessage:  Invalid eventOut name gone in route\n");
}

// --- Posting and delivery ------------------------------------------------------------------

TEST_F(Routes, MinusOneMeansNowAndOtherTimesStay) {
    SFFloat value(1.0f);
    browser.executeFrame(3.5);
    manager->calls.clear();
    browser.postEventIn(4, value, -1.0);
    browser.postEventIn(4, value, 0.0);
    browser.postEventOut(5, value, -1.0);
    ASSERT_EQ(manager->calls.size(), 3u);
    EXPECT_EQ(manager->calls[0].time, 3.5);
    EXPECT_EQ(manager->calls[1].time, 0.0);
    EXPECT_EQ(manager->calls[2].what, "postEventOut");
    EXPECT_EQ(manager->calls[2].time, 3.5);
}

TEST(EventFun, NullArrayReportsNoEventsAndRealEventsMarkTheNodeOnceForTheFrame) {
    znBrowserIntern browser(nullptr);
    std::vector<const char*> urls;
    auto* type = new znNodeType(1, "Thing", urls, &browser, 0, 0, nullptr);
    browser.enterType(type);
    znNode* node = browser.newNode("d00000+n", type);
    EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(znBrowserIntern::eventFun(node, 0, nullptr), 1); }),
              "\nMessage:  NO EVENTS\n");

    SFFloat value(2.0f);
    znEvent first("set_value", 1.0, static_cast<Field&>(value));
    znEvent second("set_value", 1.0, static_cast<Field&>(value));
    Event* events[] = {&first, nullptr, &second};
    eventsProcessedMap.clear();
    EXPECT_EQ(znBrowserIntern::eventFun(node, 3, events), 1);
    EXPECT_EQ(eventsProcessedMap.size(), 1u);
    browser.executeFrame(0.0);
    EXPECT_TRUE(eventsProcessedMap.empty());
}

TEST(Event, LongNameIsCutAndTerminated) {
    std::string name(300, 'n');
    SFFloat value(1.0f);
    znEvent event(name.c_str(), 2.0, static_cast<Field&>(value));
    EXPECT_EQ(std::string(event.getName()), std::string(255, 'n'));
    Event* copy = event.clone();
    EXPECT_EQ(copy->getValue(), event.getValue());
    EXPECT_EQ(copy->getTimeStamp(), 2.0);
    delete copy;
}
