#include "scripts/zn_cppsi.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include "base/zn_reports.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "scripts/script_messages.h"

void* ZndsoHandle = nullptr;

namespace {

// Constructions while the browser runs in mode 0: only the first adds a
// library, the later ones use what it brought.
int modeZeroConstructions = 0;

// Mode of a browser that loads every library and never trusts the static
// lookup alone.
constexpr int kLibraryMode = 0;
// Mode in which the static lookup, where there is one, is the only source.
constexpr int kStaticMode = 1;

// Adds a shared object so that its symbols serve every later lookup.
void* addLibrary(const char* fileName) { return dlopen(fileName, RTLD_NOW | RTLD_GLOBAL); }

void report(void (*sink)(const char*), const char* format, const char* value) {
    char text[kScriptTextSize];
    std::snprintf(text, sizeof text, format, value ? value : "");
    sink(text);
}

void reportDlerror(void (*sink)(const char*)) {
    if (const char* error = dlerror()) sink(error);
}

bool isStaticBuiltin(const char* fileName) {
    return std::strncmp(fileName, kStaticBuiltin, std::strlen(kStaticBuiltin)) == 0;
}

// The loader's own image, opened once without loading anything new.
void* ownImage() {
    static void* handle = [] {
        Dl_info info{};
        if (!dladdr(reinterpret_cast<void*>(&znFindLoadedSymbol), &info) || !info.dli_fname) return (void*)nullptr;
        return dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD);
    }();
    return handle;
}

// The script base of a file: its last path element up to the first dot.
std::string scriptBase(const char* fileName) {
    const char* slash = std::strrchr(fileName, '/');
    std::string base = slash ? slash + 1 : fileName;
    size_t start = base.find_first_not_of(" \t\r\n");
    base.erase(0, start == std::string::npos ? base.size() : start);
    size_t dot = base.find('.');
    if (dot != std::string::npos) base.resize(dot);
    return base;
}

}  // namespace

void* znFindLoadedSymbol(const char* name) {
    if (void* found = dlsym(RTLD_DEFAULT, name)) return found;
    void* own = ownImage();
    return own ? dlsym(own, name) : nullptr;
}

znCPP_SI::znCPP_SI(const char* fileName, znNodeType& type, znNodeConstFn lookup)
    : znScriptInterface(type), browser(type.getBrowser()), scriptInterfaces(nullptr) {
    if (browser) scriptInterfaces = browser->getScriptInterfaces();
    type.setScriptID(kCompiledScriptID);
    scriptID = kCompiledScriptID;
    if (!fileName) fileName = "";

    const int mode = browser ? browser->ZNType() : kStaticMode;
    const bool builtin = isStaticBuiltin(fileName);
    if (mode == kLibraryMode) {
        if (++modeZeroConstructions == 1) {
            ZndsoHandle = addLibrary(fileName);
            if (!ZndsoHandle) {
                report(znAlert, kCouldNotAddLibrary, fileName);
                reportDlerror(znAlert);
                return;
            }
        }
    } else if (!builtin && (!lookup || mode != kStaticMode)) {
        ZndsoHandle = addLibrary(fileName);
        if (mode != kStaticMode && !ZndsoHandle) {
            report(znAlert, kWarnCouldNotAddLibrary, fileName);
            reportDlerror(znAlert);
            return;
        }
    }
    if (!lookup && !ZndsoHandle && !builtin) {
        report(znAlert, kWarnCouldNotAddLibrary, fileName);
        reportDlerror(znAlert);
        return;
    }

    // The function's name: from the file for a Script, otherwise from the
    // type, unless the type names it outright (a quoted text).
    const char* typeName = type.getType();
    if (std::strncmp(typeName, kScriptTypePrefix, std::strlen(kScriptTypePrefix)) == 0) {
        functionName = scriptBase(fileName);
    } else {
        functionName = typeName;
    }
    char name[kScriptTextSize];
    std::snprintf(name, sizeof name, kInitializeFormat, functionName.c_str());
    functionName = name;
    const char* initFn = type.getInitFn();
    if (initFn && std::strncmp(typeName, kScriptTypePrefix, std::strlen(kScriptTypePrefix)) != 0) {
        size_t length = std::strlen(initFn);
        if (length >= 2 && initFn[0] == '"' && initFn[length - 1] == '"')
            functionName.assign(initFn + 1, length - 2);
        else if (length > 0)
            functionName = initFn;
    }

    void* found = nullptr;
    if (lookup) {
        std::vector<char> writable(functionName.begin(), functionName.end());
        writable.push_back('\0');
        found = reinterpret_cast<void*>(lookup(writable.data()));
    }
    if (!found && (!lookup || mode != kStaticMode)) {
        // A null handle searches everything loaded, as a built-in needs.
        found = (ZndsoHandle && !builtin) ? dlsym(ZndsoHandle, functionName.c_str()) : nullptr;
        if (!found && (builtin || !ZndsoHandle)) found = znFindLoadedSymbol(functionName.c_str());
    }
    if (!found) {
        report(znMessage, kCouldNotLocateFunction, functionName.c_str());
        reportDlerror(znMessage);
        return;
    }
    scriptFn = reinterpret_cast<znScriptConstructor>(found);
}

// Both must allow it: the node's own answer from when it was made, and the
// table's now.
bool znCPP_SI::enabled(znNode& node) {
    return node.isScriptEnabled() != 0 && (!scriptInterfaces || scriptInterfaces->isEnabled(scriptID) != 0);
}

Script* znCPP_SI::findOrReport(znNode& node, const char* missing) {
    if (Script* script = node.getCompiledScript()) return script;
    report(znAlert, missing, node.getName());
    return nullptr;
}

int znCPP_SI::initialize(znNode& node) {
    if (!enabled(node) || !scriptFn) return 0;
    // The script takes the pair it is made with; a script that throws or
    // answers nothing has not taken it.
    auto pair = std::make_unique<znInternal>(node.getBrowser(), &node);
    Script* script = scriptFn(pair.get());
    if (script) pair.release();
    if (!script) {
        report(znAlert, kScriptInitializeFailed, node.getName());
        return 0;
    }
    if (node.getCompiledScript() != nullptr) {
        report(znMessage, kCantInsertScript, node.getName());
        return 0;
    }
    node.setCompiledScript(script);
    return 1;
}

void znCPP_SI::shutdown(znNode& node) {
    if (!enabled(node)) return;
    // A built-in ends itself in its shutdown: the entry must not outlive it.
    if (Script* script = findOrReport(node, kShutdownNoScript)) {
        node.setCompiledScript(nullptr);
        script->shutdown();
    }
}

void znCPP_SI::eventsProcessed(znNode& node) {
    if (!enabled(node)) return;
    if (Script* script = findOrReport(node, kEventsProcessedNoScript)) script->eventsProcessed();
}

void znCPP_SI::restore(znNode& node, int n) {
    if (!enabled(node)) return;
    if (auto* script = dynamic_cast<zn*>(findOrReport(node, kRestoreNoScript))) script->restore(n);
}

int znCPP_SI::action(znNode& node, SFTime& time, int mode, void* data) {
    if (!node.isScriptEnabled()) return 0;
    znScriptInterfaces* table = browser ? browser->getScriptInterfaces() : nullptr;
    if (table && !table->isEnabled(scriptID)) return 0;
    Script* script = node.getCompiledScript();
    if (script == nullptr) return 0;
    Builtin* compiled = script->asBuiltin();
    return compiled ? compiled->action(time, mode, data) : 0;
}

Builtin* znCPP_SI::getCPPScript(znNode& node) {
    if (!enabled(node)) return nullptr;
    Script* script = node.getCompiledScript();
    return script != nullptr ? script->asBuiltin() : nullptr;
}

znScriptInterface* newZnCPPSI(const char* file, znNodeType& type, znNodeConstFn lookup) {
    return new znCPP_SI(file, type, lookup);
}
