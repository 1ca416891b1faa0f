// The simulation manager: the route table and event cascade behind the
// browser, replaceable through addSimManager. The default one keeps no
// routes and queues nothing; it only ticks the top-level nodes each frame.
#ifndef ZN_SIM_MANAGER_H
#define ZN_SIM_MANAGER_H

#include <iosfwd>
#include <vector>

class ConstField;
class Event;
class EventOut;
class EventOutObserver;
class znNode;
class znBrowserIntern;

// What a manager calls to deliver `count` events to `node`; a null entry is
// a time tick.
typedef int (*znEventFunction)(znNode* node, int count, Event** events);

class znSimManager {
public:
    virtual void addEvent(ConstField& value, const char* name, double time, int index, int kind) = 0;
    virtual void postEventIn(int index, ConstField& value, double time) = 0;
    virtual void postEventOut(int index, ConstField& value, double time) = 0;
    virtual int iterateEvents(znEventFunction fn, double time) = 0;
    virtual void deleteTopNodes() = 0;
    virtual void removeSensor(int id) = 0;
    virtual void postSensor(int id) = 0;
    virtual void clearAllCascades() = 0;
    virtual void deleteRoute(int fromIndex, int toIndex) = 0;
    virtual void addObserver(int index, EventOut* out, EventOutObserver* observer, void* data) = 0;
    virtual void clearAllRoutes() = 0;
    virtual void clearAllEvents() = 0;
    virtual int addEventOut() = 0;
    virtual void addRoute(int fromIndex, char* from, int toIndex, char* to) = 0;
    virtual int nextIndex() = 0;
    virtual int addEventIn(znNode* node, int dataID, char* record) = 0;
    virtual int addEOobserver() = 0;
    virtual void printRoutes(std::ostream& out) = 0;
    virtual void getRoutes(std::vector<char*>& out) = 0;
    virtual znBrowserIntern* getBrowser() = 0;
    virtual ~znSimManager() = default;
};

class znSimManager_default : public znSimManager {
public:
    explicit znSimManager_default(znBrowserIntern* browser);

    void addEvent(ConstField&, const char*, double, int, int) override {}
    void postEventIn(int, ConstField&, double) override {}
    void postEventOut(int, ConstField&, double) override {}
    int iterateEvents(znEventFunction fn, double time) override;
    void deleteTopNodes() override { topNodes.clear(); }
    void removeSensor(int id) override;
    void postSensor(int id) override;
    void clearAllCascades() override { topNodes.clear(); }
    void deleteRoute(int, int) override {}
    void addObserver(int, EventOut*, EventOutObserver*, void*) override {}
    void clearAllRoutes() override {}
    void clearAllEvents() override { index = 0; }
    // Without a route table every eventOut shares one index.
    int addEventOut() override { return 1; }
    void addRoute(int, char*, int, char*) override {}
    int nextIndex() override { return index++; }
    int addEventIn(znNode*, int, char*) override { return 1; }
    int addEOobserver() override { return 1; }
    void printRoutes(std::ostream&) override {}
    void getRoutes(std::vector<char*>&) override {}
    znBrowserIntern* getBrowser() override { return browser; }

    const std::vector<znNode*>& getTopNodes() const { return topNodes; }

private:
    int index;
    std::vector<znNode*> topNodes;  // borrowed from the browser's tables
    znBrowserIntern* browser;       // back pointer
};

#endif
