#include "browser/zn_browser_event.h"

#include <cstdio>
#include <new>

#include "fields/zn_values.h"
#include "base/zn_text.h"

std::map<int, znNode*> eventsProcessedMap;

znEvent::znEvent(const char* n, double time, ConstField& v) : name{}, timeStamp(time), value(&v) {
    setName(n);
}

znEvent::znEvent(const char* n, double time, Field& v) : name{}, timeStamp(time), value(&v) {
    setName(n);
}

znEvent::znEvent(const Event& other) : name{}, timeStamp(0.0), value(nullptr) {
    Event& source = const_cast<Event&>(other);
    setName(source.getName());
    timeStamp = source.getTimeStamp();
    value = source.getValue();
}

Event* znEvent::clone() {
    // The copy points at the same value: values are never owned by events.
    return new (std::nothrow) znEvent(*this);
}

void znEvent::setName(const char* text) { znCopyCut(name, text); }
