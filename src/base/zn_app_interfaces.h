// Host plug-ins (application interfaces): the browser core knows nothing of
// graphics or user interfaces and reaches them through this table, by class
// or type name, and calls each of them around every frame of its loop.
#ifndef ZN_APP_INTERFACES_H
#define ZN_APP_INTERFACES_H

#include <list>
#include <map>
#include <string>

class znAppInterface {
public:
    virtual const char* getClass() = 0;
    virtual const char* getType() = 0;
    virtual void preProcess() {}
    virtual void process() {}
    virtual void postProcess() {}
    virtual ~znAppInterface() = default;
};

// The table of host plug-ins. It never destroys what it holds.
class znAppInterfaces {
public:
    // 1 when `p` entered both maps; 0 for null or a taken type or class name.
    // A rejected interface still stays in the frame-call list.
    int add(znAppInterface* p);
    znAppInterface* getTypeInterface(const char* type);       // null when absent
    znAppInterface* getClassInterface(const char* className);  // null when absent
    void preProcess();
    void process();
    void postProcess();

private:
    std::list<znAppInterface*> all;                 // borrowed, in order of adding
    std::map<std::string, znAppInterface*> byType;  // borrowed
    std::map<std::string, znAppInterface*> byClass; // borrowed
};

#endif
