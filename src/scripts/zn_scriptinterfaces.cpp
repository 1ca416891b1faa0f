#include "scripts/zn_scriptinterfaces.h"

#include <cstring>

#include "scripts/script_messages.h"

std::vector<znSIRow> zn_SIArray;
int zn_SIIndex = 0;

namespace {

znSIRow endRow() { return znSIRow{kEndRow, nullptr, "", nullptr, nullptr}; }

// The row for `extension`, or null. The walk ends at the "END" row.
const znSIRow* rowFor(const char* extension) {
    if (!extension) return nullptr;
    for (const znSIRow& row : zn_SIArray) {
        if (row.extension == kEndRow) break;
        if (row.extension == extension) return &row;
    }
    return nullptr;
}

int fixedID(const std::string& name) {
    if (name == kCompiledExtension || name == kCompiledExtensionAlt) return kCompiledScriptID;
    if (name == kJavaScriptExtension) return kJavaScriptID;
    if (name == kJavaExtension) return kJavaID;
    return 0;
}

}  // namespace

znScriptInterfaces::znScriptInterfaces(ZN* sys) : system(sys) {
    zn_SIArray.clear();
    zn_SIArray.push_back(endRow());
    zn_SIIndex = 0;
}

int znScriptInterfaces::add(znInterfaceFn fn, const char* extension, znNodeConstFn nodeConst,
                            const char* prefix, znExecFn exec, const char*, int enabled) {
    std::string name = extension ? extension : "";
    ++additions;
    int id = fixedID(name);
    ids[name] = id ? id : additions;
    flags[ids[name]] = enabled;

    // The new row takes the place of "END", which moves behind it.
    if (!zn_SIArray.empty() && zn_SIArray.back().extension == kEndRow) zn_SIArray.pop_back();
    zn_SIArray.push_back(znSIRow{name, fn, prefix ? prefix : "", exec, nodeConst});
    zn_SIArray.push_back(endRow());
    zn_SIIndex = static_cast<int>(zn_SIArray.size()) - 1;
    // "dll" shares the ID of "so" but is not announced as that language.
    return name == kCompiledExtensionAlt ? 0 : id;
}

void znScriptInterfaces::enable(int id, int flag) {
    auto found = flags.find(id);
    if (found != flags.end()) found->second = flag;
}

int znScriptInterfaces::isEnabled(int id) {
    auto found = flags.find(id);
    return found != flags.end() ? found->second : -1;
}

int znScriptInterfaces::getID(const char* name) {
    if (!name) return 0;
    auto found = ids.find(name);
    return found != ids.end() ? found->second : 0;
}

znInterfaceFn findInterface(const char* extension) {
    const znSIRow* row = rowFor(extension);
    return row ? row->interfaceFn : nullptr;
}

znExecFn findScriptExec(const char* extension) {
    const znSIRow* row = rowFor(extension);
    return row ? row->execFn : nullptr;
}

znNodeConstFn findNodeConst(const char* extension) {
    const znSIRow* row = rowFor(extension);
    return row ? row->nodeConstFn : nullptr;
}

const char* findExtension(const char* prefix) {
    if (!prefix) return nullptr;
    for (const znSIRow& row : zn_SIArray) {
        if (row.extension == kEndRow) break;
        if (row.prefix == prefix) return row.extension.c_str();
    }
    return nullptr;
}
