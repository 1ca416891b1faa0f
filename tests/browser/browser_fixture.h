// A browser with one node type of a few fields, a manager that records
// what the browser asks of it, and a database that hands over routes.
#ifndef WRL_BROWSER_FIXTURE_H
#define WRL_BROWSER_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "browser/zn_sim_manager.h"
#include "database/zn_database.h"
#include "database/zn_database_records.h"
#include "fields/all.h"
#include "node_records.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"

namespace wrltest {

struct ManagerCall {
    std::string what;
    int a;
    int b;
    std::string from;
    std::string to;
    double time;
};

class RecordingManager : public znSimManager_default {
public:
    explicit RecordingManager(znBrowserIntern* b) : znSimManager_default(b) {}
    void addRoute(int from, char* fromText, int to, char* toText) override {
        calls.push_back({"addRoute", from, to, fromText, toText, 0.0});
    }
    void deleteRoute(int from, int to) override { calls.push_back({"deleteRoute", from, to, "", "", 0.0}); }
    void postEventIn(int index, ConstField&, double time) override {
        calls.push_back({"postEventIn", index, 0, "", "", time});
    }
    void postEventOut(int index, ConstField&, double time) override {
        calls.push_back({"postEventOut", index, 0, "", "", time});
    }
    void addObserver(int index, EventOut*, EventOutObserver*, void*) override {
        calls.push_back({"addObserver", index, 0, "", "", 0.0});
    }
    int iterateEvents(znEventFunction fn, double time) override {
        calls.push_back({"iterateEvents", 0, 0, "", "", time});
        return znSimManager_default::iterateEvents(fn, time);
    }
    std::vector<ManagerCall> calls;
};

class RouteDatabase : public znDatabaseStandIn {
public:
    _zndbRoute* getRouteHead() override { return head; }
    void setRouteHead(_zndbRoute* h) override { head = h; }
    // Appends a route record as the database makes them.
    void add(int id, int fromNode, const char* fromField, int toNode, const char* toField) {
        auto* record = new _zndbRoute;
        record->id = id;
        record->fromNodeId = fromNode;
        record->fromField = fromField;
        record->toNodeId = toNode;
        record->toField = toField;
        _zndbRoute** slot = &head;
        while (*slot) slot = &(*slot)->next;
        *slot = record;
    }
    _zndbRoute* head = nullptr;
};

// Type 1 "Thing": value (SFFloat field), set_value (eventIn), value_out
// (eventOut), child (SFNode field), kids (MFNode field).
class BrowserFixture : public testing::Test {
protected:
    BrowserFixture() : browser(nullptr) {
        manager = new RecordingManager(&browser);
        browser.addSimManager(manager);
        database = new RouteDatabase;
        browser.replaceDatabase(database);
        std::vector<const char*> urls;
        type = new znNodeType(1, "Thing", urls, &browser, 0, 0, nullptr);
        FieldFlags flags;
        type->addData("value", SFFloatType, field, flags, "0");
        type->addData("set_value", SFFloatType, eventIn, flags, "");
        type->addData("value_out", SFFloatType, eventOut, flags, "");
        type->addData("child", SFNodeType, field, flags, "NULL");
        type->addData("kids", MFNodeType, field, flags, "[]");
        browser.enterType(type);
    }

    // A node of type Thing with the given fields present.
    void thing(NodeChain& chain, int id, const char* name, int toplevel = 0) {
        chain.node(1, id, name, "", 0, toplevel);
        chain.field("value", SFFloatType, field, "1.5");
        chain.field("set_value", SFFloatType, eventIn, "");
        chain.field("value_out", SFFloatType, eventOut, "");
    }

    znBrowserIntern browser;
    RecordingManager* manager;
    RouteDatabase* database;
    znNodeType* type;
};

}  // namespace wrltest

#endif
