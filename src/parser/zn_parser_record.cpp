// Recording bodies of znParser's semantic methods (see zn_parser_record.h).
// They keep just enough of the real behaviour for the grammar to run:
// field types drive expect, unknown node types are skipped, PROTOs declare
// types, and EXTERNPROTO targets are marked.
#include "parser/zn_parser_record.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "parser/parser.hpp"
#include "parser/parser_messages.h"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"

namespace {

void note(znParserRecord& r, const char* method, std::initializer_list<const char*> args) {
    r.callCount++;
    if (!r.keepCalls) return;
    std::string call = method;
    call += '(';
    bool first = true;
    for (const char* arg : args) {
        if (!first) call += ',';
        call += arg != nullptr ? arg : "(null)";
        first = false;
    }
    call += ')';
    r.calls.push_back(std::move(call));
}

znParserRecord::InterfaceTable* interfaceTarget(znParser& p) {
    znParserRecord& r = *p.record;
    if (p.inScriptFlag && !r.nodes.empty()) return &r.nodes.back().own;
    if (r.currentProto.name.empty()) return nullptr;
    return &r.types[r.currentProto.name];
}

int addInterface(znParser& p, const char* method, const char* type, const char* name, int kind) {
    note(*p.record, method, {type, name});
    const int token = p.fieldType(type);
    znParserRecord::InterfaceTable* table = interfaceTarget(p);
    // The first declaration of a name wins.
    if (table != nullptr && name != nullptr) table->emplace(name, znParserRecord::Interface{token, kind});
    return token;
}

const znParserRecord::Interface* lookUp(const znParserRecord& r, const std::string& field) {
    if (r.nodes.empty()) return nullptr;
    const znParserRecord::OpenNode& node = r.nodes.back();
    auto own = node.own.find(field);
    if (own != node.own.end()) return &own->second;
    auto type = r.types.find(node.type);
    if (type == r.types.end()) return nullptr;
    auto found = type->second.find(field);
    return found == type->second.end() ? nullptr : &found->second;
}

}  // namespace

void znParserRecord::declare(const std::string& type, const std::vector<std::pair<std::string, int>>& fields) {
    InterfaceTable& table = types[type];
    for (const auto& f : fields) table[f.first] = Interface{f.second, 1};
}

znParser::znParser() : record(new znParserRecord), lexer(nullptr) { lexer = new zn_Lexer(this); }

znParser::~znParser() {
    while (externProtoDepth > 0) endExternProto();
    delete lexer;
    delete record;
}

void znParser::enterNode(const char* type) {
    note(*record, "enterNode", {type});
    nodeDepth++;
    if (type == nullptr || record->types.find(type) == record->types.end()) {
        expectToken = 0;
        skippingNode = 1;
        return;
    }
    znParserRecord::OpenNode node;
    node.type = type;
    record->nodes.push_back(std::move(node));
    inScriptFlag = std::strcmp(type, "Script") == 0;
}

void znParser::exitNode() {
    note(*record, "exitNode", {});
    nodeDepth--;
    if (!record->nodes.empty()) record->nodes.pop_back();
    inScriptFlag = !record->nodes.empty() && record->nodes.back().type == "Script";
}

void znParser::setName(const char* name) {
    note(*record, "setName", {name});
    nodeNameBuffer = name;
    if (!record->nodes.empty()) record->nodes.back().instName = name;
}

void znParser::getName() {
    note(*record, "getName", {});
    nodeNameBuffer = record->nodes.empty() ? std::string() : record->nodes.back().instName;
}

void znParser::enterField(const char* name) {
    note(*record, "enterField", {name});
    const znParserRecord::Interface* field = lookUp(*record, name);
    // Events take only IS; an unknown name leaves the value to NODE.
    if (field != nullptr && (field->kind & 1) != 0) expect(field->token);
}

void znParser::exitField() { note(*record, "exitField", {}); }

void znParser::setField(const char* value) {
    record->valueBytes += value != nullptr ? std::strlen(value) : 0;
    note(*record, "setField", {value});
    std::free(const_cast<char*>(value));
}

void znParser::setFieldIS(const char* protoField) { note(*record, "setFieldIS", {protoField}); }

void znParser::setProtoField(const char* name, const char* value) {
    record->valueBytes += value != nullptr ? std::strlen(value) : 0;
    note(*record, "setProtoField", {name, value});
    std::free(const_cast<char*>(value));
}

void znParser::addEventIn(const char* type, const char* name) { addInterface(*this, "addEventIn", type, name, 2); }

void znParser::addEventOut(const char* type, const char* name) { addInterface(*this, "addEventOut", type, name, 4); }

int znParser::addField(const char* type, const char* name) { return addInterface(*this, "addField", type, name, 1); }

int znParser::addExposedField(const char* type, const char* name) {
    return addInterface(*this, "addExposedField", type, name, 3);
}

void znParser::beginProto(const char* name) {
    note(*record, "beginProto", {name});
    protoDepth++;
    fieldNestingCount() = 0;
    znParserRecord::Proto proto;
    proto.name = name;
    extProtoInfo& info = externInfo[externProtoDepth];
    if (externProtoDepth != 0 && info.wanted) {
        info.wanted = 0;
        proto.name = info.name;
        proto.externTarget = true;
    }
    record->types[proto.name].clear();
    record->currentProto = proto;
}

void znParser::inProto(const char* name) {
    note(*record, "inProto", {name});
    record->protoStack.push_back(record->currentProto);
}

void znParser::endProto() {
    note(*record, "endProto", {});
    if (!record->protoStack.empty()) {
        if (record->protoStack.back().externTarget) externInfo[externProtoDepth].created = 1;
        record->protoStack.pop_back();
    }
    record->currentProto = record->protoStack.empty() ? znParserRecord::Proto() : record->protoStack.back();
    protoDepth--;
}

void znParser::inScript() {
    note(*record, "inScript", {});
    if (!inScriptFlag) yyerror(kDeclarationOutsideScript);
}

void znParser::setRoute(const char* fromNode, const char* fromField, const char* toNode, const char* toField) {
    note(*record, "setRoute", {fromNode, fromField, toNode, toField});
}

void znParser::createToplevelUSE(const char* name) { note(*record, "createToplevelUSE", {name}); }

std::istream* znParser::openExternInput(const char* url, int /*save*/) {
    note(*record, "openExternInput", {url});
    auto found = record->externFiles.find(url);
    if (found == record->externFiles.end()) return nullptr;
    record->externInputs.push_back(std::make_unique<std::istringstream>(found->second));
    return record->externInputs.back().get();
}

void znParser::closeExternInput(std::istream* input, int /*save*/) {
    for (auto it = record->externInputs.begin(); it != record->externInputs.end(); ++it) {
        if (it->get() == input) {
            record->externInputs.erase(it);
            return;
        }
    }
}
