// What a script receives: one event, by name, time stamp and value. The
// browser's own events derive from it.
#ifndef ZN_EVENT_H
#define ZN_EVENT_H

class ConstField;

class Event {
public:
    virtual const char* getName() = 0;
    virtual double getTimeStamp() = 0;
    // Not owned by the event; the receiver only reads it.
    virtual ConstField* getValue() = 0;
    virtual Event* clone() = 0;
    virtual ~Event() = default;
};

#endif
