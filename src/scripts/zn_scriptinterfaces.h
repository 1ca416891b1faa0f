// The table of script languages: which interface serves which URL.
#ifndef ZN_SCRIPTINTERFACES_H
#define ZN_SCRIPTINTERFACES_H

#include <map>
#include <string>
#include <vector>

class ZN;
class znNodeType;
class znScriptInterface;
class znBrowser;
class znInternal;
class Script;

typedef Script* (*znScriptConstructor)(znInternal*);
typedef znScriptConstructor (*znNodeConstFn)(char* name);
typedef znScriptInterface* (*znInterfaceFn)(const char* file, znNodeType& type, znNodeConstFn lookup);
typedef char* (*znExecFn)(znBrowser* browser, char* file);

// One language of the process-wide table.
struct znSIRow {
    std::string extension;  // without the dot, such as "so"; "END" after the last row
    znInterfaceFn interfaceFn;
    std::string prefix;     // inline prefix with its colon, or ""
    znExecFn execFn;        // optional
    znNodeConstFn nodeConstFn;  // optional
};

// The rows in order, the "END" row last; zn_SIIndex counts the rows before it.
extern std::vector<znSIRow> zn_SIArray;
extern int zn_SIIndex;

// Language IDs that never change.
enum : int { kCompiledScriptID = 1, kJavaScriptID = 2, kJavaID = 3 };

class znScriptInterfaces {
public:
    // Starts the process-wide table afresh, holding only the "END" row.
    explicit znScriptInterfaces(ZN* system);
    // Enters a language. `description` names it for people and is not kept.
    // Answers the fixed ID of "so", "js" or "class", and 0 for any other.
    int add(znInterfaceFn fn, const char* extension, znNodeConstFn nodeConst, const char* prefix,
            znExecFn exec, const char* description, int enabled);
    void enable(int id, int flag);
    // The flag of a language ID; -1 for an ID that is not known, so that an
    // unknown language counts as enabled where the answer is only tested.
    int isEnabled(int id);
    // 0 for a name never added.
    int getID(const char* name);
    ZN* getZN() { return system; }

private:
    std::map<std::string, int> ids;
    std::map<int, int> flags;
    ZN* system;  // back pointer
    int additions = 0;
};

// Linear lookups over the table; null when there is no such row.
znInterfaceFn findInterface(const char* extension);
znExecFn findScriptExec(const char* extension);
znNodeConstFn findNodeConst(const char* extension);
// The extension of the row with `prefix`; valid until the next `add`.
const char* findExtension(const char* prefix);

#endif
