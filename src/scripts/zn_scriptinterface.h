// The binding that gives a node type its behaviour.
#ifndef ZN_SCRIPTINTERFACE_H
#define ZN_SCRIPTINTERFACE_H

#include <vector>

class znNodeType;
class znNode;
class Event;
class SFTime;
class Builtin;

class znScriptInterface {
public:
    explicit znScriptInterface(znNodeType& t) : type(t) {}

    virtual int initialize(znNode&) { return 0; }
    virtual void shutdown(znNode&) {}
    virtual void eventsProcessed(znNode&) {}
    virtual void processEvents(znNode&, int, Event**) {}
    virtual void processEvent(znNode&, Event&) {}
    virtual int action(znNode&, SFTime&, int, void*) { return 0; }
    virtual Builtin* getCPPScript(znNode&) { return nullptr; }
    virtual void pause(znNode&, int) {}
    virtual void resume(znNode&, int) {}
    virtual void save(znNode&, int) {}
    virtual void restore(znNode&, int) {}
    virtual void requestInfo(znNode&, std::vector<int>&) {}
    virtual void clearNodes() {}
    virtual ~znScriptInterface() = default;

    // Tries the URLs in order; null when none gives an interface.
    static znScriptInterface* newInterface(std::vector<const char*>& urls, znNodeType& type);
    // Writes `text` to `fileName`: 0, or -1 when it cannot be opened or
    // nothing was written.
    static int saveScript(const char* fileName, const char* text);

    // Longest file name that a URL may give.
    static constexpr int kFileNameSize = 1024;

protected:
    znNodeType& type;
    int state = 0;  // kept for interfaces that track their own life cycle
};

#endif
