#include "nodes/zn_node.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <ostream>
#include <vector>

#include "browser/zn_browser.h"
#include "fields/zn_exception.h"
#include "fields/zn_values.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "nodes/node_messages.h"
#include "nodes/zn_nodetype.h"
#include "scripts/zn_scriptinterfaces.h"

namespace {
// The language ID of compiled scripts.
constexpr int kCompiledScripts = 1;
// A stored node name: kind letter, five digits and "+" come first.
constexpr int kPlainNameOffset = 7;
}  // namespace

znNode::znNode(int nodeID, KeptText nodeName, znNodeType* type, Browser* b)
    : browser(b), nodeType(type), id(nodeID), name(nullptr), firstNode(nullptr), parent(nullptr),
      firstNodeID(0), cppScript(nullptr), depth(0), toplevel(0), scriptInterfaces(nullptr),
      urlBase(nullptr), dirty(0), scriptEnabled(0) {
    if (!nodeName.text || !type || !b) {
        // A broken caller ends its load, not the process.
        znAlert(kNodeNeedsParts);
        throw std::invalid_argument(kNodeNeedsParts);
    }
    scriptInterfaces = b->getScriptInterfaces();
    scriptEnabled = scriptInterfaces ? scriptInterfaces->isEnabled(type->getScriptID()) : 1;
    type->setPaused(0);
    name = const_cast<char*>(nodeName.text);
    kept = kKeptName;
    internal = new znInternal(b, this);
}

znNode::znNode(int nodeID, const char* nodeName, znNodeType* type, Browser* b)
    : znNode(nodeID, KeptText{nodeName}, type, b) {
    // The node's own copy, for a caller whose text does not outlive it.
    kept = 0;
    name = strdup(nodeName);
    if (name == nullptr) znOutOfMemory();
}

znNode::~znNode() {
    shutdown();
    // A hole not yet filled repeats a pointer: each field goes once. Lent
    // defaults stay with their type.
    std::vector<znField*> owned;
    owned.reserve(fields.size());
    for (size_t i = 0; i < fields.size(); ++i)
        if (!isLent(static_cast<int>(i))) owned.push_back(fields[i]);
    std::sort(owned.begin(), owned.end());
    owned.erase(std::unique(owned.begin(), owned.end()), owned.end());
    for (znField* f : owned) delete f;
    if (!(kept & kKeptParent)) std::free(parent);
    std::free(urlBase);
    if (!(kept & kKeptName)) std::free(name);
}

// --- Name lookups ------------------------------------------------------------

namespace {
template <class E>
Field* lookupOrThrow(znNode& node, const char* name, const char* format) {
    try {
        return node.getData(name);
    } catch (Exception&) {
        znThrow<E>(format, name ? name : "");
    }
}
}  // namespace

Field* znNode::getEventIn(const char* n) { return lookupOrThrow<InvalidEventInException>(*this, n, kInvalidEventInName); }
Field* znNode::getEventIn(const char* n, Field** out) { return getData(n, out); }
Field* znNode::getEventOut(const char* n) { return lookupOrThrow<InvalidEventOutException>(*this, n, kInvalidEventOutName); }
Field* znNode::getEventOut(const char* n, Field** out) { return getData(n, out); }
Field* znNode::getExposedField(const char* n) {
    return lookupOrThrow<InvalidExposedFieldException>(*this, n, kInvalidExposedFieldName);
}
Field* znNode::getExposedField(const char* n, Field** out) { return getData(n, out); }
Field* znNode::getField(const char* n) { return lookupOrThrow<InvalidFieldException>(*this, n, kInvalidFieldName); }
Field* znNode::getField(const char* n, Field** out) { return getData(n, out); }

// --- Behaviour -----------------------------------------------------------------

Builtin* znNode::getCPPScript() {
    if (scriptInterfaces && !scriptInterfaces->isEnabled(kCompiledScripts)) return nullptr;
    if (nodeType->isPaused()) return nullptr;
    if (cppScript) return cppScript;
    if (firstNode) return nullptr;
    cppScript = nodeType->getCPPScript(*this);
    return cppScript;
}

int znNode::action(SFTime& time, int mode, void* data) {
    Builtin* script = getCPPScript();
    if (!script) {
        if (firstNode) return firstNode->action(time, mode, data);
        return nodeType->action(*this, time, mode, data);
    }
    return scriptEnabled ? script->action(time, mode, data) : 0;
}

const char* znNode::getName(znInternal*) { return name; }

void znNode::eventsProcessed() { nodeType->eventsProcessed(*this); }
void znNode::shutdown() { nodeType->shutdown(*this); }
void znNode::pause(int n) { nodeType->pause(*this, n); }
void znNode::resume(int n) { nodeType->resume(*this, n); }
void znNode::save(int n) { nodeType->save(*this, n); }
void znNode::restore(int n) { nodeType->restore(*this, n); }
void znNode::requestInfo(std::vector<int>& out) { nodeType->requestInfo(*this, out); }

void znNode::processEvents(int count, Event** events) {
    if (Builtin* script = getCPPScript())
        script->processEvents(count, events);
    else
        nodeType->processEvents(*this, count, events);
}

void znNode::processEvent(Event& event) {
    if (Builtin* script = getCPPScript())
        script->processEvent(event);
    else
        nodeType->processEvent(*this, event);
}

int znNode::initialize() {
    makeDirty();
    return nodeType->initialize(*this);
}

// --- Identity ------------------------------------------------------------------

const char* znNode::getType() { return nodeType->getType(); }

Browser* znNode::getBrowser(Browser** out) {
    if (out) *out = browser;
    return browser;
}

int znNode::setDepth(int d) {
    depth = d;
    return 1;
}

void znNode::setParent(const char* parentName) {
    if (!parentName) return;
    char* copy = strdup(parentName);
    if (copy == nullptr) znOutOfMemory();
    if (!(kept & kKeptParent)) std::free(parent);
    parent = copy;
    kept &= static_cast<std::uint8_t>(~kKeptParent);
}

void znNode::setParent(KeptText parentName) {
    if (!parentName.text) return;
    if (!(kept & kKeptParent)) std::free(parent);
    parent = const_cast<char*>(parentName.text);
    kept |= kKeptParent;
}

void znNode::setUrlBase(const char* base) {
    if (!base) return;
    std::free(urlBase);
    urlBase = strdup(base);
}

int znNode::isSensor() { return nodeType->isSensor(); }

int znNode::setToplevel(int value) {
    toplevel = value;
    return 0;
}

// --- Fields --------------------------------------------------------------------

int znNode::enter(int index, znField* f, const char* failure) {
    if (place(index, f) != -1) return index;
    znMessage(failure);
    delete f;
    return -1;
}

int znNode::addData(const char* fieldName, FieldType type, DataType kind, FieldFlags& flags, const char* value) {
    return addDataAt(getDataID(fieldName), type, kind, flags, value);
}

int znNode::addData(const char* fieldName, FieldType type, DataType kind, FieldFlags& flags,
                    const znField& value) {
    return addDataAt(getDataID(fieldName), type, kind, flags, value);
}

int znNode::addData(const char* fieldName, FieldType type, DataType kind, FieldFlags& flags, int eventIndex) {
    return addDataAt(getDataID(fieldName), type, kind, flags, eventIndex);
}

int znNode::addData(const char* fieldName, FieldType type, DataType kind, FieldFlags& flags,
                    std::vector<znField*>* remote, int eventIndex) {
    return addDataAt(getDataID(fieldName), type, kind, flags, remote, eventIndex);
}

int znNode::addData(const char* fieldName, znField* f) { return place(getDataID(fieldName), f); }

int znNode::addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, const char* value) {
    znField* f = znField::newField(browser, this, type, kind, flags, value, nullptr);
    if (!f) return -1;
    if (place(index, f) != -1) return index;
    // The report is made only now: the text may be a whole mesh.
    char message[512];
    std::snprintf(message, sizeof message, kCantAddData, value ? value : "");
    znMessage(message);
    delete f;
    return -1;
}

int znNode::addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, const znField& value) {
    znField* f = znField::newField(browser, this, type, kind, flags, nullptr, nullptr);
    if (!f) return -1;
    *f = value;
    if (place(index, f) != -1) return index;
    Field* side = f->toField();
    char* text = side != nullptr ? side->toString() : nullptr;
    char message[512];
    std::snprintf(message, sizeof message, kCantAddData, text != nullptr ? text : "");
    std::free(text);
    znMessage(message);
    delete f;
    return -1;
}

int znNode::addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, int eventIndex) {
    znField* f = znField::newField(browser, this, type, kind, flags, nullptr, nullptr);
    if (!f) return -1;
    f->setEventIndex(eventIndex);
    return enter(index, f, kCantAddReference);
}

int znNode::addDataAt(int index, FieldType type, DataType kind, FieldFlags& flags, std::vector<znField*>* remote,
                      int eventIndex) {
    znField* f = nullptr;
    if (eventIndex != -1) {
        // An eventIn: the inner fields pass their events out through this one.
        f = znField::newField(browser, this, type, kind, flags, nullptr, nullptr);
        if (!f) return -1;
        f->setEventIndex(eventIndex);
        std::vector<znField*> self{f};
        if (remote)
            for (znField* inner : *remote)
                if (inner) inner->addRemoteData(&self);
    } else {
        f = znField::newField(browser, this, type, kind, flags, nullptr, remote);
        if (!f) return -1;
        // Only the first index that is set takes: the field posts under the
        // first real field's index.
        if (remote)
            for (znField* real : *remote)
                if (real) f->setEventIndex(real->getEventIndex());
    }
    return enter(index, f, kCantAddReference);
}

int znNode::place(int index, znField* f) {
    if (index == -1 || !f) return -1;
    if (index >= static_cast<int>(fields.size())) {
        // All the type's fields are coming, in whatever order.
        fields.reserve(std::max(static_cast<size_t>(index) + 1, static_cast<size_t>(nodeType->getFieldCount())));
        while (static_cast<int>(fields.size()) <= index) fields.push_back(f);
    }
    fields[index] = f;
    if (index < kLendable) lent &= ~(std::uint64_t{1} << index);
    return index;
}

int znNode::lendDefault(int index) {
    // A lent field never fills a hole: a hole repeats its pointer, and the
    // repeat would be the node's to delete.
    if (index < 0 || index >= kLendable || index > static_cast<int>(fields.size())) return -1;
    znField* shared = nodeType->getZnField(index);
    if (shared == nullptr) return -1;
    if (index == static_cast<int>(fields.size())) {
        fields.reserve(static_cast<size_t>(nodeType->getFieldCount()));
        fields.push_back(shared);
    } else {
        fields[index] = shared;
    }
    lent |= std::uint64_t{1} << index;
    return index;
}

znField* znNode::own(int index) {
    if (!isLent(index)) return fields[index];
    znField* shared = fields[index];
    FieldFlags flags = shared->getFlags();
    znField* copy = znField::newField(browser, this, shared->getFieldType(), shared->getDataType(), flags,
                                      nullptr, nullptr);
    if (copy == nullptr) return shared;
    if (shared->getDataType() == eventIn) {
        // An eventIn holds no value until one arrives; what it needs is its
        // own number to be sent to by.
        copy->setEventIndex(browser->nextEventIndex());
    } else {
        // The copy is what the node would have had from the start: taking
        // the value tells the node of a load, which a copy made at load time
        // did before the node was declared clean.
        const int wasDirty = dirty;
        *copy = *shared;
        dirty = wasDirty;
    }
    fields[index] = copy;
    lent &= ~(std::uint64_t{1} << index);
    return copy;
}

Field* znNode::peekData(int index) const {
    if (index < 0 || index >= static_cast<int>(fields.size()) || !fields[index]) return nullptr;
    return fields[index]->toField();
}

int znNode::removeData(int index) {
    if (index + 1 != static_cast<int>(fields.size())) return -1;
    fields.pop_back();
    if (index < kLendable) lent &= ~(std::uint64_t{1} << index);
    return index;
}

Field* znNode::getData(int index) {
    if (index < 0 || index >= static_cast<int>(fields.size()) || !fields[index])
        znThrow<Exception>(kInvalidFieldID, index);
    // The script-facing side of the field: its value class.
    return own(index)->toField();
}

Field* znNode::getData(int index, Field** out) {
    Field* result = nullptr;
    if (index >= 0 && index < static_cast<int>(fields.size()) && fields[index])
        result = own(index)->toField();
    if (out) *out = result;
    return result;
}

Field* znNode::getData(const char* fieldName) { return getData(getDataID(fieldName)); }

Field* znNode::getData(const char* fieldName, Field** out) { return getData(getDataID(fieldName), out); }

int znNode::getDataID(const char* fieldName) { return nodeType->getDataID(fieldName); }

// --- Output --------------------------------------------------------------------

void znNode::print(std::ostream& os) {
    std::vector<znNode*> printing;
    print(os, printing);
}

void znNode::printChild(std::ostream& os, znNode* child, std::vector<znNode*>& printing) {
    if (std::find(printing.begin(), printing.end(), child) == printing.end()) {
        child->print(os, printing);
        return;
    }
    // Only a DEF'ed node can be named again; any other loop ends in NULL.
    const char* childName = child->name;
    if ((childName[0] == 'd' || childName[0] == 'u') && std::strlen(childName) > kPlainNameOffset)
        os << "\n" << child->nodeType->indent() << "USE " << (childName + kPlainNameOffset) << "\n";
    else
        os << "NULL\n";
}

void znNode::print(std::ostream& os, std::vector<znNode*>& printing) {
    printing.push_back(this);
    os << "\n" << nodeType->indent();
    if (name[0] == 'u') {
        os << "USE " << (name + kPlainNameOffset);
    } else {
        if (name[0] == 'd') os << "DEF " << (name + kPlainNameOffset) << "  ";
        os << nodeType->getType();
    }
    os << " {" << "\n";
    for (size_t i = 0; i < fields.size(); ++i) {
        znField* f = fields[i];
        if (!f) continue;
        const char* entry = nodeType->getDataName(static_cast<int>(i));
        if (!entry) entry = "";
        std::vector<char*> isNames;
        f->getISNames(&isNames);
        for (auto it = isNames.rbegin(); it != isNames.rend(); ++it) {
            if (!f->getFlags().exposed() || f->getDataType() == field)
                os << nodeType->indent() << "  " << entry << "\t" << "IS " << *it << "\n";
            std::free(*it);
        }
        if (f->getDataType() != field || !f->getFlags().valueSet()) continue;
        os << nodeType->indent() << "  " << entry << "\t";
        if (isNodeValued(f)) {
            printNodes(os, *f, *nodeType, printing);
        } else {
            os << *f << "\n";
        }
    }
    os << nodeType->indent() << "}" << "\n";
    printing.pop_back();
}

bool znNode::isNodeValued(znField* f) {
    return f->getFieldType() == SFNodeType || f->getFieldType() == MFNodeType;
}

void znNode::printNodes(std::ostream& os, znField& f, znNodeType& indenting) {
    std::vector<znNode*> printing;
    printNodes(os, f, indenting, printing);
}

void znNode::printNodes(std::ostream& os, znField& f, znNodeType& indenting, std::vector<znNode*>& printing) {
    if (f.getFieldType() == SFNodeType) {
        indenting.raiseDepth();
        auto* single = dynamic_cast<SFNode*>(&f);
        BaseNode value = single ? single->getValue() : BaseNode();
        if (znNode* child = value.handleNode())
            printChild(os, child, printing);
        else
            os << "NULL\n";
        indenting.lowerDepth();
        return;
    }
    os << "[ ";
    indenting.raiseDepth();
    std::vector<Builtin*> children;
    if (auto* list = dynamic_cast<MFNode*>(&f)) Builtin::getBuiltin(*list, children);
    for (size_t k = 0; k < children.size(); ++k) {
        if (k > 0) os << indenting.indent() << ",\n";
        if (znNode* child = dynamic_cast<znNode*>(children[k]))
            printChild(os, child, printing);
        else
            os << "NULL\n";
    }
    indenting.lowerDepth();
    os << indenting.indent() << "  ]\n";
}
