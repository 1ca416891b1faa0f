// The semantic methods of znParser that the grammar calls: node and DEF
// names, name spaces and PROTO scopes, field declarations and values, IS
// bindings and ROUTE checks.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "database/zn_database.h"
#include "base/zn_reports.h"
#include "parser/parser.hpp"
#include "parser/parser_messages.h"
#include "parser/vrmlnode.h"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"

namespace {

// Instance names are compared without their kind letter, so that the 'd'
// and 'u' forms of one DEF are the same node; null for no name.
const char* instanceKey(const char* name) {
    return name != nullptr && name[0] != '\0' ? name + 1 : nullptr;
}

bool sameInstance(const char* a, const char* b) {
    if (a == nullptr || b == nullptr || a[0] == '\0' || b[0] == '\0') return false;
    return std::strcmp(a + 1, b + 1) == 0;
}

std::string_view text(const char* name) { return name != nullptr ? std::string_view(name) : std::string_view(); }

}  // namespace

// --- name spaces ------------------------------------------------------------

void znParser::pushNameSpace() {
    typeNameSpace.push_front(nullptr);
    instanceNameSpace.push_front(nullptr);
    ++typeScopes;
    ++instanceScopes;
}

void znParser::popNameSpace() {
    popList(typeNameSpace);
    popList(instanceNameSpace);
}

void znParser::popList(std::deque<VrmlNodeType*>& list) {
    const bool types = &list == &typeNameSpace;
    while (!list.empty()) {
        VrmlNodeType* entry = list.front();
        list.pop_front();
        if (entry == nullptr) {
            --(types ? typeScopes : instanceScopes);
            return;
        }
        if (types) {
            typesByDeclaredName.pop(text(entry->getDeclaredName()));
            typesByName.pop(text(entry->name));
        } else {
            if (const char* key = instanceKey(entry->instName)) instancesByName.pop(key);
        }
        delete entry;
    }
}

VrmlNodeType* znParser::findType(const char* name) {
    if (name == nullptr) return nullptr;
    return typesByDeclaredName.findType(name);
}

bool znParser::definedInScope(const char* name) {
    if (name == nullptr) return false;
    const znScopedNames::Entry* newest = typesByDeclaredName.find(name);
    if (newest == nullptr) return false;
    // At the top of a file every scope counts; in a PROTO body only its own,
    // where the newest entries of all stand.
    return protoStack.empty() || newest->scope == typeScopes;
}

VrmlNodeType* znParser::typeByInternalName(const char* name) {
    if (name == nullptr) return nullptr;
    return typesByName.findType(name);
}

bool znParser::typeNameTaken(const std::string& name) const {
    return systemTypeNames.contains(name) || worldTypeNames.contains(name);
}

std::string znParser::reserveTypeName(const char* declared) {
    std::string name = declared != nullptr ? declared : "";
    if (typeNameTaken(name)) {
        const std::string stem = name + "_";
        for (int n = 1; typeNameTaken(name = stem + std::to_string(n)); ++n) {
        }
    }
    (readingNodeSupport ? systemTypeNames : worldTypeNames).insert(name, 0);
    return name;
}

VrmlNodeType* znParser::findinstname(const char* name) {
    const char* key = instanceKey(name);
    return key != nullptr ? instancesByName.findType(key) : nullptr;
}

void znParser::enterType(VrmlNodeType* type) {
    typeNameSpace.push_front(type);
    typesByDeclaredName.push(text(type->getDeclaredName()), type, typeScopes);
    typesByName.push(text(type->name), type, typeScopes);
}

void znParser::addToNameSpace(VrmlNodeType* type) {
    if (type->instName == nullptr && definedInScope(type->getDeclaredName())) {
        // The first definition stays; in a file read for an EXTERNPROTO a
        // repeated PROTO is expected and passes silently.
        if (externProtoDepth == 0) znMessage(znFormatText(kProtoAlreadyDefined, type->getDeclaredName()).c_str());
        delete type;
        return;
    }
    if (type->instName != nullptr && std::strcmp(type->name, kScriptTypeName) == 0) {
        // Every Script node gets a type of its own, named after the node.
        const std::string scriptType = znFormatText(kScriptTypeFormat, type->instName);
        auto* own = new VrmlNodeType(*type, this);
        // The node's records are cleared below; its type keeps texts of its own.
        own->ownTexts();
        own->setName(scriptType.c_str());
        for (VrmlNodeType* scope : protoStack) setParent(scope, own);
        own->print();
        enterType(own);
        type->setName(scriptType.c_str());
    }
    type->print();
    if (type->instName != nullptr) {
        if (type->parentCount == 0) {
            type->clearfields();
            if (outOfReach(type->instName)) {
                delete type;
                return;
            }
        } else {
            type->clearfielddata();
        }
        instanceNameSpace.push_front(type);
        if (const char* key = instanceKey(type->instName)) instancesByName.push(key, type, instanceScopes);
    } else {
        enterType(type);
    }
}

bool znParser::outOfReach(const char* instName) const {
    // Only a ROUTE looks a finished node up, by the name a DEF gave: the
    // made-up name of a node without DEF is such a name only where a DEF
    // of that very text came first, as a later DEF stands in front of it.
    // Most nodes of a world have no DEF, and each record would otherwise
    // stay to the end of the file.
    constexpr std::size_t kPlainNameOffset = 7;  // behind "%c%05d+"
    if (instName[0] != kAnonymousNodeKind || std::strlen(instName) < kPlainNameOffset) return false;
    return !defIndex.contains(instName + kPlainNameOffset);
}

// --- nodes ------------------------------------------------------------------

std::unique_ptr<VrmlNodeType::NameTypeRec[]> znParser::takeRecords(std::size_t count,
                                                                   VrmlNodeType::Table* tables) {
    for (auto spare = spareRecords.begin(); spare != spareRecords.end(); ++spare) {
        if (spare->count != count) continue;
        std::unique_ptr<VrmlNodeType::NameTypeRec[]> block = std::move(spare->block);
        for (int i = 0; i < 3; ++i) tables[i].swap(spare->tables[i]);
        spareRecords.erase(spare);
        return block;
    }
    return std::unique_ptr<VrmlNodeType::NameTypeRec[]>(new VrmlNodeType::NameTypeRec[count]);
}

void znParser::keepRecords(std::unique_ptr<VrmlNodeType::NameTypeRec[]> block, std::size_t count,
                           VrmlNodeType::Table* tables) {
    // A few sizes serve a file: a node and the nodes it holds.
    constexpr std::size_t kMostSpares = 16;
    if (block == nullptr || spareRecords.size() >= kMostSpares) return;
    spareRecords.push_back(SpareRecords{count, std::move(block), {}});
    for (int i = 0; i < 3; ++i) {
        tables[i].clear();
        spareRecords.back().tables[i].swap(tables[i]);
    }
}

VrmlNodeType* znParser::topInstance() {
    if (fieldStack.empty() || fieldStack.back() == nullptr) return nullptr;
    return fieldStack.back()->nodeType;
}

void znParser::enterNode(const char* type) {
    old_setmode = _setmode;
    _setmode = 1;
    nodeDepth++;
    std::string typeName = type != nullptr ? type : "";
    VrmlNodeType* t = findType(type);
    // A type reported once is skipped without a word more.
    const bool reported = t == nullptr && reportedUnknownTypes.contains(typeName);
    while (t == nullptr && !reported) {
        const znPromptAnswer answer =
            znPrompt(znFormatText(kUnknownTypePrompt, typeName.c_str(), currentLine()).c_str());
        if (!answer.answered) break;
        typeName = answer.name;
        t = findType(typeName.c_str());
    }
    if (t == nullptr) {
        if (!reported) {
            znMessage(znFormatText(kUnknownTypeSkipped, typeName.c_str()).c_str());
            reportedUnknownTypes.insert(type != nullptr ? type : "", 0);
        }
        expect(0);
        skippingNode = 1;
        return;
    }
    auto* rec = new FieldRec{new VrmlNodeType(*t, this), nullptr};
    rec->nodeType->savedSetmode = old_setmode;
    rec->nodeType->savedInScript = static_cast<char>(inScriptFlag);
    inScriptFlag = typeName == kScriptTypeName ? 1 : 0;
    for (VrmlNodeType* scope : protoStack) setParent(scope, rec->nodeType);
    fieldStack.push_back(rec);
}

void znParser::exitNode() {
    nodeDepth--;
    if (VrmlNodeType* instance = topInstance()) {
        inScriptFlag = instance->savedInScript;
        _setmode = instance->savedSetmode;
        FieldRec* rec = fieldStack.back();
        fieldStack.pop_back();
        // In a file read for an EXTERNPROTO only its PROTOs count.
        if (externProtoDepth == 0 || protoDepth != 0) {
            addToNameSpace(instance);
        } else {
            delete instance;
        }
        delete rec;
    }
    flushPendingRoutes();
}

void znParser::flushPendingRoutes() {
    while (!pendingRoutes.empty()) {
        RouteInfo* route = pendingRoutes.back();
        pendingRoutes.pop_back();
        addRoute(route->fromNode, route->fromField, route->toNode, route->toField);
        std::free(route->fromNode);
        std::free(route->fromField);
        std::free(route->toNode);
        std::free(route->toField);
        delete route;
    }
}

void znParser::setName(const char* name) {
    nodeNameBuffer = name != nullptr ? name : "";
    if (VrmlNodeType* instance = topInstance()) instance->setInstName(name);
}

void znParser::getName() {
    VrmlNodeType* instance = topInstance();
    nodeNameBuffer = instance != nullptr && instance->instName != nullptr ? instance->instName : "";
}

// --- fields -----------------------------------------------------------------

void znParser::enterField(const char* name) {
    if (fieldStack.empty() || name == nullptr) return;
    FieldRec* rec = fieldStack.back();
    rec->fieldName = name;
    VrmlNodeType* instance = rec->nodeType;
    if (instance == nullptr) return;
    // An event takes only IS, which needs no value state.
    if (instance->hasEventIn(name) != 0 || instance->hasEventOut(name) != 0) return;
    int type = instance->hasField(name);
    if (type == 0) {
        // The value of a field the type does not have is passed over, so
        // that the rest of the file still reads; each such field of a type
        // is reported once per file.
        const std::string key = std::string(instance->getDeclaredName()) + '.' + name;
        if (reportedUnknownFields.contains(key)) {
            expect(SKIPPEDVALUE);
            return;
        }
    }
    while (type == 0) {
        const znPromptAnswer answer =
            znPrompt(znFormatText(kUnknownFieldPrompt, instance->getDeclaredName(), name).c_str());
        if (!answer.answered) {
            reportedUnknownFields.insert(std::string(instance->getDeclaredName()) + '.' + name, 0);
            znMessage(znFormatText(kUnknownFieldSkipped, name, instance->getDeclaredName()).c_str());
            expect(SKIPPEDVALUE);
            return;
        }
        type = instance->hasField(answer.name);
        if (type != 0) {
            correctedFieldName = answer.name;
            rec->fieldName = correctedFieldName.c_str();
        }
    }
    expect(type);
}

void znParser::exitField() {
    if (!fieldStack.empty()) fieldStack.back()->fieldName = nullptr;
}

void znParser::setField(const char* value) {
    VrmlNodeType* instance = topInstance();
    // The record takes the text; without one to take it, it is let go here.
    if (instance == nullptr || instance->setField(fieldStack.back()->fieldName, value) == 0)
        std::free(const_cast<char*>(value));
}

void znParser::setProtoField(const char* name, const char* value) {
    if (currentProto == nullptr || currentProto->setField(name, value) == 0) std::free(const_cast<char*>(value));
}

void znParser::setFieldIS(const char* protoField) {
    VrmlNodeType* instance = topInstance();
    if (instance == nullptr) return;
    const char* fieldName = fieldStack.back()->fieldName;
    if (protoStack.empty()) {
        // Outside any PROTO there is nothing to bind to.
        znAlert(znFormatText(kInvalidISFieldType, 0, fieldName != nullptr ? fieldName : "").c_str());
        return;
    }
    VrmlNodeType* proto = protoStack.back();
    int type = 0;
    const int kind = proto->getFieldType(protoField, &type);
    const char* shownName = fieldName != nullptr ? fieldName : "";
    if (instance->getFieldType(fieldName, nullptr) != 3) {
        if (instance->setFieldIS(fieldName, proto->name, protoField, type, kind) == 0)
            znAlert(znFormatText(kInvalidISFieldType, type, shownName).c_str());
        return;
    }
    // An exposed field binds its field half and its set_ half apiece.
    if ((kind & 1) != 0 && instance->setFieldIS(fieldName, proto->name, protoField, type, 1) == 0)
        znAlert(znFormatText(kInvalidISFieldType, type, shownName).c_str());
    const std::string eventName = znFormatText(kSetPrefixFormat, shownName);
    const std::string protoEvent =
        kind == 3 ? znFormatText(kSetPrefixFormat, protoField != nullptr ? protoField : "")
                  : std::string(protoField != nullptr ? protoField : "");
    if ((kind & 2) != 0 &&
        instance->setFieldIS(eventName.c_str(), proto->name, protoEvent.c_str(), type, 2) == 0)
        znAlert(znFormatText(kInvalidISEventInType, type, eventName.c_str()).c_str());
}

int znParser::add(void (VrmlNodeType::*member)(const char*, int), const char* type, const char* name) {
    int token = fieldType(type);
    while (token == 0) {
        const znPromptAnswer answer =
            znPrompt(znFormatText(kInvalidFieldTypePrompt, type != nullptr ? type : "NULL").c_str());
        if (!answer.answered) break;
        token = fieldType(answer.name);
    }
    VrmlNodeType* target = inScriptFlag ? topInstance() : currentProto;
    if (target != nullptr) (target->*member)(name, token);
    return token;
}

void znParser::addEventIn(const char* type, const char* name) { add(&VrmlNodeType::addEventIn, type, name); }
void znParser::addEventOut(const char* type, const char* name) { add(&VrmlNodeType::addEventOut, type, name); }
int znParser::addField(const char* type, const char* name) { return add(&VrmlNodeType::addField, type, name); }
int znParser::addExposedField(const char* type, const char* name) {
    return add(&VrmlNodeType::addExposedField, type, name);
}

void znParser::inScript() {
    if (!inScriptFlag) yyerror(kDeclarationOutsideScript);
}

// --- PROTO scopes -----------------------------------------------------------

void znParser::beginProto(const char* name) {
    _setmode = 0;
    protoDepth++;
    fieldNestingCount() = 0;
    pushNameSpace();
    openDefScope();
    extProtoInfo& info = externInfo[externProtoDepth];
    const char* declared = name != nullptr ? name : "";
    const bool target = externProtoDepth != 0 && info.wanted;
    if (target) {
        info.wanted = 0;
        if (info.name != nullptr) declared = info.name;
    }
    auto* type = new VrmlNodeType(reserveTypeName(declared).c_str(), this);
    type->setDeclaredName(declared);
    type->isExternTarget = target ? 1 : 0;
    for (VrmlNodeType* scope : protoStack) setParent(scope, type);
    // A PROTO whose interface was never closed is no one else's.
    if (currentProto != nullptr &&
        std::find(protoStack.begin(), protoStack.end(), currentProto) == protoStack.end())
        delete currentProto;
    currentProto = type;
}

void znParser::inProto(const char* /*name*/) {
    if (currentProto != nullptr) protoStack.push_back(currentProto);
}

void znParser::endProto() {
    popNameSpace();
    closeDefScope();
    if (protoStack.empty()) {
        znAlert(kEmptyProtoStack);
    } else {
        VrmlNodeType* type = protoStack.back();
        protoStack.pop_back();
        const bool target = type->isExternTarget != 0;
        if (currentProto == type) currentProto = nullptr;
        addToNameSpace(type);
        if (target) externInfo[externProtoDepth].created = 1;
    }
    if (currentProto == nullptr && !protoStack.empty()) currentProto = protoStack.back();
    protoDepth--;
}

// --- ROUTE ------------------------------------------------------------------

void znParser::setRoute(const char* fromNode, const char* fromField, const char* toNode, const char* toField) {
    if (nodeDepth < 1) {
        addRoute(fromNode, fromField, toNode, toField);
        return;
    }
    // A node named inside a node may not be finished yet.
    pendingRoutes.push_back(new RouteInfo{znCopyText(fromNode != nullptr ? fromNode : ""),
                                          znCopyText(fromField != nullptr ? fromField : ""),
                                          znCopyText(toNode != nullptr ? toNode : ""),
                                          znCopyText(toField != nullptr ? toField : "")});
}

VrmlNodeType* znParser::routeEnd(const char* node) {
    VrmlNodeType* top = topInstance();
    const bool beingRead = top != nullptr && sameInstance(top->instName, node);
    VrmlNodeType* instance = beingRead ? top : findinstname(node);
    VrmlNodeType* type = instance != nullptr ? typeByInternalName(instance->name) : nullptr;
    if (type == nullptr) {
        znMessage(znFormatText(kBadRouteUnknownNode, node).c_str());
        return nullptr;
    }
    // The node being read still has its whole interface, a Script's own
    // declarations included; a finished one keeps only its name.
    return beingRead ? instance : type;
}

void znParser::addRoute(const char* fromNode, const char* fromField, const char* toNode, const char* toField) {
    VrmlNodeType* source = routeEnd(fromNode);
    if (source == nullptr) return;
    std::string out = fromField;
    int fromType = source->hasEventOut(out.c_str());
    if (fromType == 0) {
        const std::size_t changed = out.find(kChangedSuffix);
        if (changed != std::string::npos) out.resize(changed);
        fromType = source->hasField(out.c_str());
    }
    if (fromType == 0) {
        znMessage(znFormatText(kBadRouteNotEventOut, fromField, fromNode).c_str());
        return;
    }
    VrmlNodeType* destination = routeEnd(toNode);
    if (destination == nullptr) return;
    std::string in = toField;
    int toType = destination->hasEventIn(in.c_str());
    if (toType == 0) {
        in = znFormatText(kSetPrefixFormat, toField);
        toType = destination->hasEventIn(in.c_str());
    }
    if (toType == 0) {
        znMessage(znFormatText(kBadRouteNotEventIn, toField, toNode).c_str());
        return;
    }
    if (fromType != toType) {
        yyerror(znFormatText(kBadRouteTypes, VrmlNodeType::getTypeString(fromType),
                               VrmlNodeType::getTypeString(toType))
                    .c_str());
        return;
    }
    addRoute(source->name, fromNode, out.c_str(), destination->name, toNode, in.c_str());
}

void znParser::addRoute(const char* fromType, const char* fromNode, const char* fromField, const char* toType,
                        const char* toNode, const char* toField) {
    if (!outputFlag || database == nullptr) return;
    Parents parents;
    for (VrmlNodeType* scope : protoStack) setRouteParent(scope, &parents);
    database->InsertRouteByName(const_cast<char*>(fromType), const_cast<char*>(fromNode),
                                const_cast<char*>(fromField), const_cast<char*>(toType), const_cast<char*>(toNode),
                                const_cast<char*>(toField), parents.names);
}

void znParser::createToplevelUSE(const char* name) {
    if (outputFlag && database != nullptr) database->createToplevelUSE(name);
}
