#include "parser/vrmlnode.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "database/zn_database.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "parser/parser.hpp"
#include "parser/parser_messages.h"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"

int _setmode = 0;
int old_setmode = 0;

namespace {

char* copyOrNull(const char* text) { return text != nullptr ? znCopyText(text) : nullptr; }

bool startsWith(const char* text, const char* prefix) {
    return text != nullptr && std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

// Type names of the field-type tokens, SFBOOL (271) to MFNODE (290).
constexpr const char* kTokenNames[] = {
    "SFBOOL",     "SFCOLOR",  "SFFLOAT", "SFIMAGE",  "SFINT32",  "SFNODE",   "SFROTATION",
    "SFSTRING",   "SFTIME",   "SFVEC2F", "SFVEC3F",  "MFCOLOR",  "MFFLOAT",  "MFINT32",
    "MFROTATION", "MFSTRING", "MFTIME",  "MFVEC2F",  "MFVEC3F",  "MFNODE",
};

// The flag word of one record as the database reads it.
FieldFlags flagsOf(const VrmlNodeType::NameTypeRec& rec) {
    FieldFlags flags;
    if (rec.exposed) flags.bits |= FieldFlags::kExposed;
    if (rec.setmode == 1) flags.bits |= FieldFlags::kValueSet;
    return flags;
}

bool appendParent(char** list, int& count, const char* scopeName) {
    // The last slot stays null, so the list always ends.
    if (count >= VrmlNodeType::kMaxParents - 1) {
        znAlert(kParentNestingTooDeep);
        return false;
    }
    list[count++] = znCopyText(scopeName);
    if (count >= VrmlNodeType::kMaxParents - 1) znAlert(kParentNestingTooDeep);
    list[count] = nullptr;
    return true;
}

}  // namespace

VrmlNodeType::VrmlNodeType(const char* nm, znParser* p)
    : eventIns(&tables[0]), eventOuts(&tables[1]), fields(&tables[2]), parser(p) {
    assert(nm != NULL);
    name = znCopyText(nm);
}

VrmlNodeType::VrmlNodeType(VrmlNodeType& other, znParser* p)
    : typeId(other.typeId), eventIns(&tables[0]), eventOuts(&tables[1]), fields(&tables[2]), parser(p) {
    name = other.name;
    sharedTypeName = true;
    // A Script node declares fields of its own, which its type is made from
    // only once the node is read.
    defaultsImplied = !startsWith(other.name, kScriptTypeName) && other.namesAreUnique();
    declaredName = copyOrNull(other.declaredName);
    other.useCount++;
    instanceNumber = other.useCount;
    recordBlockSize = other.eventIns->size() + other.eventOuts->size() + other.fields->size();
    if (parser != nullptr) {
        recordBlock = parser->takeRecords(recordBlockSize, tables);
    } else {
        recordBlock.reset(new NameTypeRec[recordBlockSize]);
    }
    NameTypeRec* next = recordBlock.get();
    copyTable(other.eventIns, eventIns, next);
    copyTable(other.eventOuts, eventOuts, next);
    copyTable(other.fields, fields, next);
}

VrmlNodeType::~VrmlNodeType() {
    if (instName != nullptr) {
        std::free(instName);
    } else {
        clearfielddata();
    }
    clearfields();
    for (int i = 0; i < parentCount; ++i) std::free(parents[i]);
    if (!sharedTypeName) std::free(name);
    std::free(declaredName);
}

// The old text is let go after the copy, since `nm` may be that text.
void VrmlNodeType::setName(const char* nm) {
    char* old = name;
    name = copyOrNull(nm);
    if (!sharedTypeName) std::free(old);
    sharedTypeName = false;
    std::free(declaredName);
    declaredName = nullptr;
}

void VrmlNodeType::setDeclaredName(const char* nm) {
    char* old = declaredName;
    declaredName = nm != nullptr && std::strcmp(nm, name) != 0 ? znCopyText(nm) : nullptr;
    std::free(old);
}

void VrmlNodeType::setInstName(const char* nm) {
    char* old = instName;
    instName = copyOrNull(nm);
    std::free(old);
}

void VrmlNodeType::addEventIn(const char* nm, int type) { add(eventIns, nm, type, 0); }
void VrmlNodeType::addEventOut(const char* nm, int type) { add(eventOuts, nm, type, 0); }
void VrmlNodeType::addField(const char* nm, int type) { add(fields, nm, type, 0); }

void VrmlNodeType::addExposedField(const char* nm, int type) {
    add(fields, nm, type, 1);
    if (nm == nullptr) return;
    // The _changed half is found through the field itself where routes are
    // checked, so only set_ gets a record.
    const std::string setName = std::string("set_") + nm;
    add(eventIns, setName.c_str(), type, 1);
}

int VrmlNodeType::hasEventIn(const char* nm) const { return has(eventIns, nm); }
int VrmlNodeType::hasEventOut(const char* nm) const { return has(eventOuts, nm); }
int VrmlNodeType::hasField(const char* nm) const { return has(fields, nm); }

int VrmlNodeType::hasExposedField(const char* nm) const {
    if (nm == nullptr) return 0;
    const std::string lookFor = std::string("set_") + nm + "\n";
    return has(fields, lookFor.c_str()) != 0 && has(eventIns, lookFor.c_str()) != 0 ? 1 : 0;
}

int VrmlNodeType::setField(const char* nm, const char* value) const {
    NameTypeRec* rec = lookUp(fields, nm);
    if (rec == nullptr) return 0;
    if (!rec->sharedValue) std::free(rec->value);
    rec->sharedValue = 0;
    rec->value = const_cast<char*>(value);
    rec->setmode = _setmode;
    return 1;
}

int VrmlNodeType::setFieldIS(const char* nm, const char* nodeName, const char* protoField, int type,
                             int kind) const {
    switch (kind) {
        case 1:
        case 3:
        case 7: return setIS(fields, nm, nodeName, protoField, type);
        case 2: return setIS(eventIns, nm, nodeName, protoField, type);
        case 4: return setIS(eventOuts, nm, nodeName, protoField, type);
        default: return -1;
    }
}

int VrmlNodeType::getFieldType(const char* nm, int* type) const {
    if (nm == nullptr) return 0;
    int mask = 0;
    std::string lookFor = nm;
    if (const NameTypeRec* rec = lookUp(fields, nm)) {
        mask = 1;
        if (type != nullptr) *type = rec->type;
        lookFor = std::string("set_") + nm;
    }
    if (const NameTypeRec* rec = lookUp(eventIns, lookFor.c_str())) {
        mask = mask == 1 ? 3 : 2;
        if (type != nullptr) *type = rec->type;
    }
    if (const NameTypeRec* rec = lookUp(eventOuts, lookFor.c_str())) {
        mask += 4;
        if (type != nullptr) *type = rec->type;
    }
    return mask;
}

const char* VrmlNodeType::getTypeString(int token) {
    if (token < SFBOOL || token > MFNODE) return "";
    return kTokenNames[token - SFBOOL];
}

int VrmlNodeType::getTypeJX(int token) {
    if (token >= SFBOOL && token <= MFINT32) return token - SFBOOL + SFBoolType;
    if (token == MFNODE) return MFNodeType;
    if (token >= MFROTATION && token <= MFVEC3F) return token - MFROTATION + MFRotationType;
    return -1;
}

namespace {
// Every record of every node is held against the names of the marks that
// a type declares, and every field a file sets is looked up by name: the
// first letter settles nearly all comparisons without a call.
bool named(const VrmlNodeType::NameTypeRec* rec, const char* name) {
    return rec->name[0] == name[0] && std::strcmp(rec->name, name) == 0;
}
}  // namespace

void VrmlNodeType::print() {
    if (parser == nullptr || !parser->outputEnabled()) return;
    znDatabase* db = parser->getDatabase();
    if (db == nullptr) return;
    const bool isProto = instName == nullptr;
    if (isProto) {
        char* url = nullptr;
        char* init = nullptr;
        int sensor = 0;
        const bool script = startsWith(name, kScriptTypeName);
        const bool readInit = parser->getBrowserType() != 1;
        for (NameTypeRec* rec : *fields) {
            if (url == nullptr &&
                (named(rec, kImplementationField) || (script && named(rec, "url"))))
                url = rec->value;
            if (readInit && named(rec, kInitField)) init = rec->value;
            if (named(rec, kSensorField)) sensor = 1;
        }
        db->CreatePrototype(name, parents, url, 0, sensor, nullptr, init);
    } else {
        int grouping = 0;
        int sensor = 0;
        for (NameTypeRec* rec : *fields) {
            if (named(rec, kGroupingField)) grouping = 1;
            // Only the last record decides: sensor types declare it last.
            sensor = named(rec, kSensorField) ? 1 : 0;
        }
        db->CreateNode(name, instName, parents, grouping, parser->fieldNestingCount(), sensor);
    }
    struct Pass {
        Table* table;
        int kind;
    };
    const Pass passes[] = {{eventIns, 2}, {eventOuts, 1}, {fields, 0}};
    for (const Pass& pass : passes) {
        for (NameTypeRec* rec : *pass.table) {
            if (pass.kind == 0 &&
                (named(rec, kGroupingField) || named(rec, kImplementationField)))
                continue;
            // The world gives a field that no record names its type's
            // default: most fields of most nodes are never written.
            if (!isProto && defaultsImplied && isUnsetDefault(*rec, pass.kind)) continue;
            char* value = pass.kind == 0 ? rec->value : nullptr;
            if (isProto) {
                db->SetPrototypeData(nullptr, rec->name, value, getTypeJX(rec->type), pass.kind, flagsOf(*rec));
            } else {
                db->SetNodeData(nullptr, rec->name, value, getTypeJX(rec->type), pass.kind, flagsOf(*rec),
                                &rec->isFields);
            }
        }
    }
    if (isProto) {
        db->EndPrototype();
    } else {
        db->EndNode();
    }
}

void VrmlNodeType::clearfields() {
    clearTable(eventIns);
    clearTable(eventOuts);
    clearTable(fields);
    if (parser != nullptr && recordBlock != nullptr)
        parser->keepRecords(std::move(recordBlock), recordBlockSize, tables);
    recordBlock.reset();
    recordBlockSize = 0;
    // The record stays in its name space to the end of the file: it keeps
    // no room for records it will never have again.
    for (Table& table : tables) Table().swap(table);
}

void VrmlNodeType::ownTexts() {
    if (sharedTypeName) name = copyOrNull(name);
    sharedTypeName = false;
    ownTable(eventIns);
    ownTable(eventOuts);
    ownTable(fields);
}

void VrmlNodeType::clearfielddata() {
    clearTableData(eventIns);
    clearTableData(eventOuts);
    clearTableData(fields);
}

bool VrmlNodeType::namesAreUnique() {
    if (uniqueNames < 0) {
        std::vector<const char*> names;
        for (const Table* table : {eventIns, eventOuts, fields})
            for (const NameTypeRec* rec : *table) names.push_back(rec->name);
        std::sort(names.begin(), names.end(),
                  [](const char* a, const char* b) { return std::strcmp(a, b) < 0; });
        const auto same = [](const char* a, const char* b) { return std::strcmp(a, b) == 0; };
        uniqueNames = std::adjacent_find(names.begin(), names.end(), same) == names.end() ? 1 : 0;
    }
    return uniqueNames == 1;
}

bool VrmlNodeType::isUnsetDefault(const NameTypeRec& rec, int kind) {
    if (!rec.sharedValue || !rec.isFields.empty() || rec.isNode != nullptr || getTypeJX(rec.type) < 0) return false;
    // A node-valued default that names nodes makes those nodes' references.
    const bool nodeValued = rec.type == SFNODE || rec.type == MFNODE;
    return kind != 0 || !nodeValued || znNamesNoNode(rec.value);
}

void VrmlNodeType::add(Table* list, const char* nm, int type, char exposed) {
    if (nm == nullptr || lookUp(list, nm) != nullptr) return;
    uniqueNames = -1;
    auto* rec = new NameTypeRec;
    rec->name = znCopyText(nm);
    rec->type = type;
    rec->exposed = exposed;
    list->push_back(rec);
}

VrmlNodeType::NameTypeRec* VrmlNodeType::lookUp(const Table* list, const char* nm) {
    if (nm == nullptr) return nullptr;
    // Every field a file sets is looked for in two or three tables of up to
    // a few dozen names.
    for (NameTypeRec* rec : *list) {
        if (named(rec, nm)) return rec;
    }
    return nullptr;
}

int VrmlNodeType::has(const Table* list, const char* nm) {
    const NameTypeRec* rec = lookUp(list, nm);
    return rec != nullptr ? rec->type : 0;
}

int VrmlNodeType::setIS(Table* list, const char* nm, const char* nodeName, const char* protoField, int type) {
    if (nm == nullptr || nodeName == nullptr || protoField == nullptr) return 0;
    NameTypeRec* rec = lookUp(list, nm);
    if (rec == nullptr || rec->type != type) return 0;
    std::free(rec->isNode);
    rec->isNode = znCopyText(nodeName);
    for (const char* bound : rec->isFields) {
        if (std::strcmp(bound, protoField) == 0) return 1;
    }
    rec->isFields.push_back(znCopyText(protoField));
    rec->setmode = _setmode;
    return 1;
}

void VrmlNodeType::copyTable(const Table* from, Table* to, NameTypeRec*& next) {
    to->reserve(from->size());
    for (const NameTypeRec* rec : *from) {
        // A block may have served another node before.
        NameTypeRec* copy = next++;
        copy->isNode = nullptr;
        copy->isFields.clear();
        copy->setmode = 0;
        copy->name = rec->name;
        copy->sharedName = 1;
        copy->type = rec->type;
        copy->exposed = rec->exposed;
        copy->value = rec->value;
        copy->sharedValue = 1;
        to->push_back(copy);
    }
}

bool VrmlNodeType::inBlock(const NameTypeRec* rec) const {
    return recordBlock != nullptr && rec >= recordBlock.get() && rec < recordBlock.get() + recordBlockSize;
}

void VrmlNodeType::clearTable(Table* list) {
    clearTableData(list);
    for (NameTypeRec* rec : *list) {
        if (!rec->sharedName) std::free(rec->name);
        if (!inBlock(rec)) delete rec;
    }
    list->clear();
}

void VrmlNodeType::ownTable(Table* list) {
    for (NameTypeRec* rec : *list) {
        if (rec->sharedName) rec->name = znCopyText(rec->name);
        if (rec->sharedValue) rec->value = copyOrNull(rec->value);
        rec->sharedName = rec->sharedValue = 0;
    }
}

void VrmlNodeType::clearTableData(Table* list) {
    for (NameTypeRec* rec : *list) {
        if (!rec->sharedValue) std::free(rec->value);
        rec->sharedValue = 0;
        rec->value = nullptr;
        std::free(rec->isNode);
        rec->isNode = nullptr;
        for (char* bound : rec->isFields) std::free(bound);
        rec->isFields.clear();
    }
}

Parents::~Parents() {
    for (int i = 0; i < count; ++i) std::free(names[i]);
}

void setParent(VrmlNodeType* scope, VrmlNodeType* target) {
    if (scope == nullptr || target == nullptr || scope->name == nullptr) return;
    appendParent(target->parents, target->parentCount, scope->name);
}

void setRouteParent(VrmlNodeType* scope, Parents* target) {
    if (scope == nullptr || target == nullptr || scope->name == nullptr) return;
    appendParent(target->names, target->count, scope->name);
}
