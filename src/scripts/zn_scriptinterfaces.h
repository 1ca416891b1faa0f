// The table of script languages: which interface serves which URL.
#ifndef ZN_SCRIPTINTERFACES_H
#define ZN_SCRIPTINTERFACES_H

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

class znScriptInterfaces {
public:
    explicit znScriptInterfaces(ZN* system);
    int add(znInterfaceFn fn, const char* extension, const char* prefix, znExecFn exec,
            znNodeConstFn nodeConst, int enabled);
    // The flag of a language ID; -1 for an ID that is not known, so that an
    // unknown language counts as enabled where the answer is only tested.
    int isEnabled(int id);

private:
    ZN* system;  // back pointer
};

#endif
