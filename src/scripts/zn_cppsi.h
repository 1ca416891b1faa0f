// Compiled scripts: node behaviour from shared objects and from the classes
// linked into the loader itself.
#ifndef ZN_CPPSI_H
#define ZN_CPPSI_H

#include <string>

#include "browser/zn_browser.h"
#include "scripts/zn_scriptinterface.h"
#include "scripts/zn_scriptinterfaces.h"

// The most recently added shared object, or null.
extern void* ZndsoHandle;

class znCPP_SI : public znScriptInterface {
public:
    znCPP_SI(const char* fileName, znNodeType& type, znNodeConstFn lookup);

    int initialize(znNode& node) override;
    void shutdown(znNode& node) override;
    void eventsProcessed(znNode& node) override;
    void processEvents(znNode&, int, Event**) override {}
    void processEvent(znNode&, Event&) override {}
    int action(znNode& node, SFTime& time, int mode, void* data) override;
    Builtin* getCPPScript(znNode& node) override;
    void pause(znNode&, int) override {}
    void resume(znNode&, int) override {}
    void save(znNode&, int) override {}
    void restore(znNode& node, int n) override;
    void requestInfo(znNode&, std::vector<int>&) override {}
    // The script objects stay with their nodes, which the world ends.
    void clearNodes() override {}
    ~znCPP_SI() override = default;

    // Null when construction found no constructor function.
    znScriptConstructor getScriptFn() const { return scriptFn; }
    // The name that construction looked for.
    const std::string& getFunctionName() const { return functionName; }

private:
    bool enabled(znNode& node);
    // The node's script, or null after reporting `missing` with its name.
    Script* findOrReport(znNode& node, const char* missing);

    znScriptConstructor scriptFn = nullptr;
    int scriptID = kCompiledScriptID;
    Browser* browser;                        // borrowed
    znScriptInterfaces* scriptInterfaces;    // borrowed from the system object
    std::string functionName;
};

znScriptInterface* newZnCPPSI(const char* file, znNodeType& type, znNodeConstFn lookup);

// Looks `name` up among the symbols already loaded, and then in the loader's
// own image, which a host may have opened without global symbols.
void* znFindLoadedSymbol(const char* name);

#endif
