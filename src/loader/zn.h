// The system object: ties one browser to its application interfaces and its
// script interfaces.
#ifndef ZN_H
#define ZN_H

class znBrowserIntern;
class znAppInterfaces;
class znScriptInterfaces;

class ZN {
public:
    explicit ZN(int mode);
    // Releases only the object: the browser, the tables and the world they
    // hold live on until znReleaseParts or the end of the process.
    ~ZN() = default;

    int mode;
    znBrowserIntern* browser;             // owning, until znReleaseParts
    znAppInterfaces* appInterfaces;       // owning, until znReleaseParts
    znScriptInterfaces* scriptInterfaces; // owning, until znReleaseParts
};

// Ends what `system` holds: the browser, and with it its world, first, then
// the tables of interfaces, leaving null members. The interfaces added to
// the tables belong to whoever added them and are not touched. The system
// object itself is left to its owner.
void znReleaseParts(ZN& system);

// Reports an exception that nobody caught; the load it came out of ends.
void znTerminate();

// Kept for debug builds; nothing reads it.
extern int debuglevel;

#endif
