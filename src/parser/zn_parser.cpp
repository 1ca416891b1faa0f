// The bridge to the lexer, error reports, the expected type, field type
// names, DEF names and the EXTERNPROTO records.
#include "parser/zn_parser.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "parser/parser.hpp"
#include "parser/parser_messages.h"
#include "parser/zn_lexer.h"

void znParserBoundedCopy(std::string& out, const char* text, int capacity, const char* what) {
    const char* source = text != nullptr ? text : "";
    const std::size_t length = std::strlen(source);
    if (length < static_cast<std::size_t>(capacity)) {
        out.assign(source, length);
        return;
    }
    znMessage(znFormatText(kTextCut, what, capacity - 1, source).c_str());
    out.assign(source, static_cast<std::size_t>(capacity - 1));
}

namespace {

// VRML field type names in the order of their tokens, SFBOOL (271) first.
struct TypeName {
    const char* name;
    int token;
};
constexpr TypeName kFieldTypes[] = {
    {"SFBool", SFBOOL},         {"SFColor", SFCOLOR},     {"SFFloat", SFFLOAT},
    {"SFImage", SFIMAGE},       {"SFInt32", SFINT32},     {"SFNode", SFNODE},
    {"SFRotation", SFROTATION}, {"SFString", SFSTRING},   {"SFTime", SFTIME},
    {"SFVec2f", SFVEC2F},       {"SFVec3f", SFVEC3F},     {"MFColor", MFCOLOR},
    {"MFFloat", MFFLOAT},       {"MFInt32", MFINT32},     {"MFNode", MFNODE},
    {"MFRotation", MFROTATION}, {"MFString", MFSTRING},   {"MFTime", MFTIME},
    {"MFVec2f", MFVEC2F},       {"MFVec3f", MFVEC3F},
};

}  // namespace

int znParser::call_yylex(void* lvalue) { return lexer->yylex(lvalue); }

void znParser::yyerror(const char* message) {
    const char* text = lexer->YYText();
    const std::string scanned = text != nullptr ? std::string(text).substr(0, kErrorTextLength) : std::string();
    const int line = lexer->lineNumber();
    znAlert(znFormatText(kErrorReport, currentFilename.c_str(), line, message, scanned.c_str()).c_str());
    znSyntaxError(currentFilename.c_str(), line, message, scanned.c_str());
    lexer->expect(0);
}

void znParser::expect(int token) { lexer->expect(token); }

int znParser::currentLine() const { return lexer->lineNumber(); }

int znParser::fieldType(const char* type) {
    if (type != nullptr) {
        for (const TypeName& t : kFieldTypes) {
            if (std::strcmp(type, t.name) == 0) return t.token;
        }
    }
    znAlert(znFormatText(kIllegalFieldType, type != nullptr ? type : "NULL").c_str());
    return 0;
}

const char* znParser::makeDefName(const char* name, int number, char kind) {
    // "%c%05d+%s", written out: every node of a file passes here.
    char head[24];
    head[0] = kind;
    char* end = znWriteDecimal(head + 1, number, 5);
    *end++ = '+';
    defNameBuffer.assign(head, end);
    defNameBuffer.append(name != nullptr ? name : "");
    return defNameBuffer.c_str();
}

int znParser::setDefName(const char* name) {
    const char* key = name != nullptr ? name : "";
    const auto entry = defIndex.insert(key, static_cast<int>(defNames.size()));
    if (entry.second) defNames.emplace_back();
    DefName& def = defNames[static_cast<std::size_t>(*entry.first)];
    const int number = entry.second ? 0 : def.latest + 1;
    def.latest = number;
    if (!defScopes.empty()) defUndo.push_back(HiddenDef{*entry.first, def.visible, def.file});
    def.visible = number;
    def.file = fileSerial;
    return number;
}

void znParser::openDefScope() { defScopes.push_back(defUndo.size()); }

void znParser::closeDefScope() {
    if (defScopes.empty()) return;
    const std::size_t mark = defScopes.back();
    defScopes.pop_back();
    while (defUndo.size() > mark) {
        const HiddenDef& hidden = defUndo.back();
        DefName& def = defNames[static_cast<std::size_t>(hidden.index)];
        def.visible = hidden.number;
        def.file = hidden.file;
        defUndo.pop_back();
    }
}

const char* znParser::getDefName(const char* name) {
    // Each file has names of its own: a DEF of another file, an inlined
    // one's or the world's, is no DEF here.
    const int* index = defIndex.find(name != nullptr ? name : "");
    const DefName* def = index != nullptr ? &defNames[static_cast<std::size_t>(*index)] : nullptr;
    if (def != nullptr && def->file == fileSerial && def->visible != kNoDef)
        return makeDefName(name, def->visible, 'u');
    znAlert(znFormatText(kUseNameFailed, name).c_str());
    return name;
}

void znParser::forgetWorld() { worldTypeNames.clear(); }

int& znParser::fieldNestingCount() {
    int level = protoDepth;
    if (level < 0) level = 0;
    if (level >= kMaxProtoDepth) level = kMaxProtoDepth - 1;
    return fieldNesting[level];
}

void znParser::beginExternProto(const char* name, const char* urlList) {
    ExternDeclaration declaration;
    declaration.interface = std::move(pendingExternInterface);
    // An EXTERNPROTO that stands in for the PROTO sought keeps the outer name.
    const extProtoInfo& outer = externInfo[externProtoDepth];
    const bool standIn = externProtoDepth >= 1 && outer.wanted == 1 && outer.name != nullptr;
    declaration.name = standIn ? outer.name : (name != nullptr ? name : "");
    if (externProtoDepth >= kMaxExternDepth) {
        znAlert(znFormatText(kExternProtoTooDeep, kMaxExternDepth).c_str());
        externStack.push_back(std::move(declaration));
        externRefused = 1;
        return;
    }
    externProtoDepth++;
    extProtoInfo& info = externInfo[externProtoDepth];
    // Each text between a pair of double quotes is one URL.
    info.urls.clear();
    for (const char* p = urlList != nullptr ? std::strchr(urlList, '"') : nullptr; p != nullptr;) {
        const char* end = std::strchr(p + 1, '"');
        if (end == nullptr) break;
        info.urls.push_back(znCopyText(std::string(p + 1, end).c_str()));
        p = std::strchr(end + 1, '"');
    }
    info.urlIndex = 0;
    info.name = znCopyText(declaration.name.c_str());
    info.wanted = 0;
    info.created = 0;
    info.failed = 0;
    info.savedFilename = znCopyText(currentFilename.c_str());
    info.savedLine = currentLine();
    declaration.levelOpened = true;
    externStack.push_back(std::move(declaration));
    if (!lexer->push_buffer()) {
        // No URL opens: the declaration ends with the next token, and the
        // text after it is read as before.
        info.failed = 1;
        info.created = 1;
    }
}

void znParser::reportExternMiss() {
    const extProtoInfo& info = externInfo[externProtoDepth];
    if (info.fragment != nullptr) {
        znAlert(znFormatText(kExternProtoNotInFile, info.fragment, currentFilename.c_str()).c_str());
    } else {
        znAlert(znFormatText(kExternProtoNoneInFile, currentFilename.c_str()).c_str());
    }
}

bool znParser::takeExternProtoEnd() {
    if (externRefused) {
        // An EXTERNPROTO that opened no level ends at once.
        externRefused = 0;
        return true;
    }
    extProtoInfo& info = externInfo[externProtoDepth];
    if (!info.created) return false;
    info.created = 0;
    return true;
}

void znParser::externFileEnded() { externInfo[externProtoDepth].failed = 1; }

void znParser::protoKeywordSeen(const char* name) {
    extProtoInfo& info = externInfo[externProtoDepth];
    if (info.fragment == nullptr || std::strcmp(name, info.fragment) == 0) info.wanted = 1;
}

std::istream* znParser::openNextExternInput() {
    extProtoInfo& info = externInfo[externProtoDepth];
    while (info.urlIndex < static_cast<int>(info.urls.size())) {
        std::string url = info.urls[info.urlIndex];
        std::free(info.fragment);
        info.fragment = nullptr;
        const std::size_t hash = url.find('#');
        if (hash != std::string::npos) {
            info.fragment = znCopyText(url.c_str() + hash + 1);
            url.resize(hash);
        }
        currentFilename = url;
        lexer->yyResetLineNumber();
        std::istream* input = openExternInput(url.c_str());
        info.urlIndex++;
        if (input != nullptr && input->good()) return input;
        if (input != nullptr) closeExternInput(input);
        znAlert(znFormatText(kExternProtoOpenFailed, url.c_str()).c_str());
    }
    return nullptr;
}

void znParser::endStandIn() {
    if (externProtoDepth <= 0) return;
    extProtoInfo& info = externInfo[externProtoDepth];
    if (info.wanted != 1) return;
    info.wanted = 0;
    info.created = 1;
}

void znParser::endExternProto() {
    if (externProtoDepth <= 0) return;
    lexer->pop_buffer();
    extProtoInfo& info = externInfo[externProtoDepth];
    currentFilename = info.savedFilename != nullptr ? info.savedFilename : "";
    std::free(info.savedFilename);
    info.savedFilename = nullptr;
    lexer->setLineNumber(info.savedLine);
    std::free(info.name);
    info.name = nullptr;
    std::free(info.fragment);
    info.fragment = nullptr;
    for (const char* url : info.urls) std::free(const_cast<char*>(url));
    info.urls.clear();
    info.urlIndex = 0;
    info.failed = 0;
    externProtoDepth--;
}
