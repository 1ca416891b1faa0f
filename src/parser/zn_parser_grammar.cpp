// What the grammar's actions call: the start and end of each node, its
// field values, node-valued fields, the declarations of Script nodes,
// EXTERNPROTO declarations and ROUTEs. Each action is one call here, so
// that every decision of the parse lives in znParser.
#include <cstdlib>
#include <cstring>
#include <string>

#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "database/zn_database.h"
#include "parser/parser.hpp"
#include "parser/parser_messages.h"
#include "parser/vrmlnode.h"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"

// --- nodes ------------------------------------------------------------------

void znParser::enterAnonymousNode(const char* type) {
    enterNode(type);
    // Every node without DEF counts, skipped or not.
    char number[16] = "_";
    *znWriteDecimal(number + 1, anonymousCount++) = '\0';
    if (skippingNode) return;
    // TYPE_n, written behind the head where the name is made.
    makeDefName(type, 0, kAnonymousNodeKind);
    defNameBuffer.append(number);
    setName(defNameBuffer.c_str());
}

void znParser::enterDefNode(const char* defName, const char* type) {
    const int counter = setDefName(defName);
    enterNode(type);
    if (skippingNode) {
        // The name stays defined, for a USE of it to find and give nothing.
        skippedDefs.insert(makeDefName(defName, counter, 'u') + 1, 0);
        return;
    }
    setName(makeDefName(defName, counter, 'd'));
}

void znParser::endNodeDeclaration(char* type, char* defName) {
    const znTokenTexts texts(type, defName);
    if (!skippingNode) {
        getName();
        exitNode();
        return;
    }
    // The lexer has read the body; the node is no node, and the one that
    // holds it keeps its name.
    skippingNode = 0;
    nodeDepth--;
    _setmode = old_setmode;
    nodeNameBuffer = kNoNode;
    flushPendingRoutes();
}

void znParser::useNode(char* defName) {
    const znTokenTexts texts(defName);
    // The 'u' form of a DEF'ed name; an unknown name goes on as it stands
    // at the top of the file, and is no node inside a field, where it would
    // take the whole value with it.
    const char* useName = getDefName(defName);
    const bool known = useName != defName;
    nodeNameBuffer = useName;
    if (fieldNestingCount() == 0) {
        if (!known || !skippedDefs.contains(nodeNameBuffer.c_str() + 1)) createToplevelUSE(nodeNameBuffer.c_str());
        return;
    }
    if (!known || (!skippedDefs.empty() && skippedDefs.contains(nodeNameBuffer.c_str() + 1)))
        nodeNameBuffer = kNoNode;
}

// --- field values -----------------------------------------------------------

void znParser::endField(char* name, char* value) {
    const znTokenTexts texts(name);
    setFieldValue(value);
    exitField();
}

void znParser::setFieldValue(const char* value) {
    // Outside its PROTOs, a file read for an EXTERNPROTO only passes by.
    if (externProtoDepth == 0 || protoDepth != 0) {
        setField(value);
    } else {
        znReleaseText(const_cast<char*>(value));
    }
}

char* znParser::fieldIS(char* protoField, char* keyword) {
    const znTokenTexts texts(protoField, keyword);
    setFieldIS(protoField);
    return znCopyText(kISMarker);
}

void znParser::enterNodeValue() { ++fieldNestingCount(); }

char* znParser::endSFNodeValue(char* keyword) {
    const znTokenTexts texts(keyword);
    --fieldNestingCount();
    return znCopyText(nodeNameBuffer.c_str());
}

void znParser::enterMFNodeValue() {
    // The texts of finished values stay with their room for the next ones:
    // a grouping node's children are such a value.
    if (mfNodeDepth == mfNodeStack.size()) mfNodeStack.emplace_back();
    mfNodeStack[mfNodeDepth++].clear();
    ++fieldNestingCount();
}

char* znParser::endMFNodeValue(char* keyword) {
    const znTokenTexts texts(keyword);
    char* value = znCopyText(mfNodeDepth == 0 ? "" : mfNodeStack[mfNodeDepth - 1].c_str());
    if (mfNodeDepth > 0) --mfNodeDepth;
    --fieldNestingCount();
    return value;
}

std::string& znParser::mfNodeText() {
    if (mfNodeDepth == 0) {
        if (mfNodeStack.empty()) mfNodeStack.emplace_back();
        mfNodeStack[mfNodeDepth++].clear();
    }
    return mfNodeStack[mfNodeDepth - 1];
}

void znParser::openMFNodeList() { mfNodeText() = "[ "; }

void znParser::closeMFNodeList() { mfNodeText() += " ]"; }

void znParser::singleMFNode() { mfNodeText() = nodeNameBuffer; }

void znParser::appendMFNode() {
    // A skipped node leaves no entry; an explicit NULL does.
    if (nodeNameBuffer == kNoNode) return;
    mfNodeText() += nodeNameBuffer;
    mfNodeText() += ",";
}

void znParser::appendMFNodeNull() { mfNodeText() += "NULL,"; }

// --- PROTO interfaces ---------------------------------------------------------

void znParser::declareEvent(int kind, char* type, char* name) {
    const znTokenTexts texts(type, name);
    if (kind == EVENTIN)
        addEventIn(type, name);
    else
        addEventOut(type, name);
}

void znParser::declareProtoField(char* type, char* name, char* value) {
    const znTokenTexts texts(type, name);
    setProtoField(name, value);
}

void znParser::endProtoDeclaration(char* name) {
    const znTokenTexts texts(name);
    endProto();
}

// --- Script declarations ----------------------------------------------------

void znParser::beginScriptField(const char* type, const char* name) {
    inScript();
    expect(addField(type, name));
    enterField(name);
}

void znParser::beginScriptExposedField(const char* type, const char* name) {
    inScript();
    expect(addExposedField(type, name));
    enterField(name);
}

void znParser::endScriptField(char* type, char* name, char* value) {
    const znTokenTexts texts(type, name);
    setField(value);
}

void znParser::declareScriptEvent(int kind, char* type, char* name) {
    inScript();
    declareEvent(kind, type, name);
}

void znParser::addScriptEventIS(int kind, char* type, char* name, char* protoField) {
    const znTokenTexts texts(type, name, protoField);
    inScript();
    if (kind == EVENTIN) {
        addEventIn(type, name);
    } else {
        addEventOut(type, name);
    }
    enterField(name);
    setFieldIS(protoField);
}

// --- EXTERNPROTO ------------------------------------------------------------

void znParser::addExternInterface(int kind, char* type, char* name) {
    const znTokenTexts texts(type, name);
    if (!pendingExternInterface) pendingExternInterface = std::make_unique<VrmlNodeType>("", this);
    const int token = fieldType(type);
    if (token == 0) return;
    VrmlNodeType& interface = *pendingExternInterface;
    switch (kind) {
        case EVENTIN: interface.addEventIn(name, token); break;
        case EVENTOUT: interface.addEventOut(name, token); break;
        case FIELD: interface.addField(name, token); break;
        default: interface.addExposedField(name, token); break;
    }
}

void znParser::finishExternProto(char* name, char* urls) {
    const znTokenTexts texts(name, urls);
    if (externStack.empty()) return;
    ExternDeclaration declaration = std::move(externStack.back());
    externStack.pop_back();
    bool failed = !declaration.levelOpened;
    if (declaration.levelOpened) {
        failed = externInfo[externProtoDepth].failed != 0;
        endExternProto();
    }
    if (failed) defineUnresolvedExtern(declaration);
    endStandIn();
}

void znParser::defineUnresolvedExtern(ExternDeclaration& declaration) {
    znAlert(znFormatText(kExternProtoUnresolved, declaration.name.c_str()).c_str());
    VrmlNodeType* type = declaration.interface.release();
    if (type == nullptr) type = new VrmlNodeType("", this);
    type->setName(reserveTypeName(declaration.name.c_str()).c_str());
    type->setDeclaredName(declaration.name.c_str());
    for (VrmlNodeType* scope : protoStack) setParent(scope, type);
    addToNameSpace(type);
}

// --- ROUTE ------------------------------------------------------------------

void znParser::declareRoute(char* fromNode, char* fromField, char* toNode, char* toField) {
    const znTokenTexts texts(fromNode, fromField, toNode, toField);
    // Outside its PROTOs, a file read for an EXTERNPROTO only passes by.
    if (externProtoDepth != 0 && protoDepth == 0) return;
    // A DEF'ed node is named in its 'd' form; an unknown name goes on as it
    // stands.
    const char* fromName = getDefName(fromNode);
    std::string from = fromName;
    if (fromName != fromNode) from[0] = 'd';
    const char* toName = getDefName(toNode);
    std::string to = toName;
    if (toName != toNode) to[0] = 'd';
    setRoute(from.c_str(), fromField, to.c_str(), toField);
}
