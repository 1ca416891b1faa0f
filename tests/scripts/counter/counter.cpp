// A compiled Script for the tests: counts what reaches it.
#include "fields/zn_values.h"
#include "nodes/zn_vrml.h"
#include "scripts/zn_event.h"

#include <string>

class Counter : public Builtin {
public:
    explicit Counter(znInternal* pair) : BaseNode(pair) {}
    int action(SFTime&, int mode, void*) override {
        ++actions;
        lastMode = mode;
        return 0;
    }
    void processEvent(Event& event) override {
        ++events;
        lastEvent = event.getName();
    }
    int actions = 0;
    int lastMode = 0;
    int events = 0;
    std::string lastEvent;
};

extern "C" Script* counterInitialize(znInternal* pair) { return new Counter(pair); }

// Lets a test read the counts without sharing the class.
extern "C" int counterActions(Script* script) { return static_cast<Counter*>(script)->actions; }
extern "C" int counterLastMode(Script* script) { return static_cast<Counter*>(script)->lastMode; }
extern "C" int counterEvents(Script* script) { return static_cast<Counter*>(script)->events; }
extern "C" const char* counterLastEvent(Script* script) {
    return static_cast<Counter*>(script)->lastEvent.c_str();
}
