// Routes and events: names of the VRML text and of scripts become the
// manager's event indexes here.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "browser/browser_messages.h"
#include "browser/zn_browser_intern.h"
#include "browser/zn_sim_manager.h"
#include "browser/zn_ui_interface.h"
#include "database/zn_database.h"
#include "database/zn_database_records.h"
#include "fields/zn_exception.h"
#include "fields/zn_values.h"
#include "base/zn_reports.h"
#include "nodes/zn_node.h"

namespace {
constexpr size_t kPlainNameOffset = 7;

const char* plainName(const char* stored) {
    return std::strlen(stored) > kPlainNameOffset ? stored + kPlainNameOffset : "";
}

void reportInt(void (*sink)(const char*), const char* format, int value) {
    char message[256];
    std::snprintf(message, sizeof message, format, value);
    sink(message);
}

void reportText(void (*sink)(const char*), const char* format, const char* text) {
    char message[512];
    std::snprintf(message, sizeof message, format, text);
    sink(message);
}

// A node may hold fewer fields than its type declares.
znField* fieldAt(znNode* node, int index) {
    return index >= 0 && index < node->getFieldCount() ? node->getZnField(index) : nullptr;
}

// "node.field", as the manager keeps a route's ends.
std::string routeEnd(const char* storedNode, const char* fieldName) {
    char text[512];
    std::snprintf(text, sizeof text, kRouteEnd, plainName(storedNode), fieldName);
    return text;
}

// How a route operation meets each fault: the load and the script interface
// differ only in this.
struct RoutePolicy {
    bool throws;
    const char* badDestination;  // report when not throwing
};

// The resolved ends of one route.
struct ResolvedRoute {
    znNode* from = nullptr;
    znNode* to = nullptr;
    std::vector<int> fromIndexes;
    int toIndex = -1;
};
}  // namespace

// Resolves both ends; answers false after reporting, or throws, as `policy`
// says. A missing eventOut index is handed out unless `forDelete` is set.
static bool resolveRoute(znBrowserIntern& browser, znSimManager& manager, int fromNode, int toNode,
                         const char* eventOut, const char* eventIn, const RoutePolicy& policy,
                         bool forDelete, ResolvedRoute& out) {
    try {
        out.from = browser.getNode(fromNode);
    } catch (znInvalidNodeIDException&) {
        if (policy.throws) znThrow<InvalidRouteException>(kBadRouteSource, fromNode);
        reportInt(znAlert, kSkipRouteSource, fromNode);
        return false;
    }
    int outID = out.from->getDataID(eventOut);
    if (outID == -1) {
        if (policy.throws) znThrow<InvalidEventOutException>(kBadRouteEventOut, eventOut);
        reportText(znMessage, kRouteEventOutUnknown, eventOut);
        return false;
    }
    znField* source = fieldAt(out.from, outID);
    if (!source) {
        // Declared by the type but never given to this node.
        if (policy.throws) znThrow<InvalidEventOutException>(kBadRouteEventOut, eventOut);
        reportText(znMessage, kRouteEventOutUnknown, eventOut);
        return false;
    }
    if (source->isVirtual()) {
        source->getRemoteIndexes(out.fromIndexes);
    } else {
        if (source->getEventIndex() == -1) {
            if (forDelete) {
                znMessage(kRouteEventOutNoIndex);
                return false;
            }
            source->setEventIndex(manager.addEventOut());
        }
        out.fromIndexes.push_back(source->getEventIndex());
    }
    try {
        out.to = browser.getNode(toNode);
    } catch (znInvalidNodeIDException&) {
        if (policy.throws) znThrow<InvalidRouteException>(kBadRouteDestination, toNode);
        reportInt(znAlert, policy.badDestination, toNode);
        return false;
    }
    int inID = out.to->getDataID(eventIn);
    if (inID == -1) {
        if (policy.throws) znThrow<InvalidEventInException>(kBadRouteEventIn, eventIn);
        reportText(znMessage, kRouteEventInUnknown, eventIn);
        return false;
    }
    znField* destination = fieldAt(out.to, inID);
    out.toIndex = destination ? destination->getEventIndex() : -1;
    if (out.toIndex == -1) {
        if (policy.throws) znThrow<InvalidEventInException>(kBadRouteEventInIndex);
        znMessage(kRouteEventInNoIndex);
        return false;
    }
    return true;
}

// Enters a resolved route with the manager and tells a "ui" interface.
static void enterRoute(znAppInterfaces* applications, znSimManager& manager, int routeID, ResolvedRoute& route,
                       const char* eventOut, const char* eventIn) {
    const char* fromName = route.from->getName(nullptr);
    const char* toName = route.to->getName(nullptr);
    std::string fromText = routeEnd(fromName, eventOut);
    std::string toText = routeEnd(toName, eventIn);
    for (int index : route.fromIndexes)
        manager.addRoute(index, &fromText[0], route.toIndex, &toText[0]);
    if (routeID <= 0 || !applications) return;
    auto* listener = dynamic_cast<znUIInterface*>(applications->getClassInterface(kRouteListenerClass));
    if (listener)
        listener->routeAdded(routeID, route.from->getType(), fromName, eventOut, route.to->getType(), toName,
                             eventIn);
}

void znBrowserIntern::addRoute(BaseNode& from, const char* eventOut, BaseNode& to, const char* eventIn) {
    int routeID = database->nextRouteID();
    addRouteByID(routeID, from.getID(), to.getID(), const_cast<char*>(eventOut), const_cast<char*>(eventIn));
}

void znBrowserIntern::addRouteByID(int routeID, int fromNode, int toNode, char* eventOut, char* eventIn) {
    const char* out = eventOut ? eventOut : "";
    const char* in = eventIn ? eventIn : "";
    ResolvedRoute route;
    resolveRoute(*this, *simManager, fromNode, toNode, out, in, {true, nullptr}, false, route);
    enterRoute(appInterfaces, *simManager, routeID, route, out, in);
}

void znBrowserIntern::readRoutes(const char*) {
    database->GetAllRoutes();
    _zndbRoute* record = database->getRouteHead();
    database->setRouteHead(nullptr);
    while (record) {
        const char* out = record->fromField.c_str();
        const char* in = record->toField.c_str();
        ResolvedRoute route;
        if (resolveRoute(*this, *simManager, record->fromNodeId, record->toNodeId, out, in,
                         {false, kSkipRouteDestination}, false, route))
            enterRoute(appInterfaces, *simManager, record->id, route, out, in);
        _zndbRoute* next = record->next;
        delete record;
        record = next;
    }
}

void znBrowserIntern::deleteRoute(BaseNode& from, const char* eventOut, BaseNode& to, const char* eventIn) {
    ResolvedRoute route;
    if (!resolveRoute(*this, *simManager, from.getID(), to.getID(), eventOut ? eventOut : "",
                      eventIn ? eventIn : "", {false, kSkipDeletedRouteDestination}, true, route))
        return;
    for (int index : route.fromIndexes) simManager->deleteRoute(index, route.toIndex);
}

void znBrowserIntern::addObserver(Node& node, char* eventOut, EventOutObserver* observer, void* data,
                                  EventOut* out) {
    const char* name = eventOut ? eventOut : "";
    znNode* source = nullptr;
    try {
        source = getNode(node.getID());
    } catch (znInvalidNodeIDException&) {
        reportInt(znAlert, kSkipRouteSource, node.getID());
        return;
    }
    int outID = source->getDataID(name);
    if (outID == -1) {
        reportText(znMessage, kRouteEventOutUnknown, name);
        return;
    }
    znField* f = fieldAt(source, outID);
    if (!f) {
        reportText(znMessage, kRouteEventOutUnknown, name);
        return;
    }
    std::vector<int> indexes;
    if (f->isVirtual()) {
        f->getRemoteIndexes(indexes);
    } else {
        if (f->getEventIndex() == -1) {
            int index = simManager->addEOobserver();
            if (index == -1) {
                znMessage(kRouteEventOutNoIndex);
                return;
            }
            f->setEventIndex(index);
        }
        indexes.push_back(f->getEventIndex());
    }
    for (int index : indexes) simManager->addObserver(index, out, observer, data);
}

void znBrowserIntern::getRoutes(std::vector<char*>& out) { simManager->getRoutes(out); }

void znBrowserIntern::postEventIn(int index, Field& value, double time) {
    simManager->postEventIn(index, value, time == -1.0 ? currentTime : time);
}

void znBrowserIntern::postEventOut(int index, Field& value, double time) {
    simManager->postEventOut(index, value, time == -1.0 ? currentTime : time);
}
