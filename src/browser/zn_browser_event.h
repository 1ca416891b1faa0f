// The browser's event: an eventIn name, a time stamp and a value that the
// event only points at.
#ifndef ZN_BROWSER_EVENT_H
#define ZN_BROWSER_EVENT_H

#include <map>

#include "scripts/zn_event.h"

class ConstField;
class Field;
class znNode;

class znEvent : public Event {
public:
    // The name is cut to what fits, always terminated.
    znEvent(const char* name, double time, ConstField& value);
    znEvent(const char* name, double time, Field& value);
    explicit znEvent(const Event& other);

    const char* getName() override { return name; }
    double getTimeStamp() override { return timeStamp; }
    ConstField* getValue() override { return value; }
    Event* clone() override;

private:
    void setName(const char* text);

    char name[256];
    double timeStamp;
    ConstField* value;  // borrowed: neither owned nor copied
};

// The nodes that received events in the current frame, each once, in ID
// order; told eventsProcessed at the frame's end.
extern std::map<int, znNode*> eventsProcessedMap;

#endif
