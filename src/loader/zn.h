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
    // hold live on until the process ends.
    ~ZN() = default;

    int mode;
    znBrowserIntern* browser;             // owning, never released
    znAppInterfaces* appInterfaces;       // owning, never released
    znScriptInterfaces* scriptInterfaces; // owning, never released
};

// Reports an exception that nobody caught; the load it came out of ends.
void znTerminate();

// Kept for debug builds; nothing reads it.
extern int debuglevel;

#endif
