#include "nodes/zn_vrml.h"

#include <ostream>

#include "fields/zn_values.h"
#include "nodes/zn_node.h"

// --- BaseNode --------------------------------------------------------------

BaseNode::BaseNode(const BaseNode& other)
    : internal(other.internal ? new znInternal(*other.internal) : nullptr) {}

BaseNode& BaseNode::operator=(const BaseNode& other) {
    if (this == &other) return *this;
    if (!other.internal) {
        delete internal;
        internal = nullptr;
    } else if (internal) {
        *internal = *other.internal;
    } else {
        internal = new znInternal(*other.internal);
    }
    return *this;
}

BaseNode::~BaseNode() { delete internal; }

const char* BaseNode::getType() {
    znNode* n = handleNode();
    return n ? n->getType() : nullptr;
}

Browser* BaseNode::getBrowser() { return internal ? internal->browser : nullptr; }

Browser* BaseNode::getBrowser(Browser** out) {
    Browser* b = BaseNode::getBrowser();
    if (out) *out = b;
    return b;
}

int BaseNode::isDirty() {
    znNode* n = handleNode();
    return n ? n->isDirty() : 1;
}

void BaseNode::makeDirty() {
    if (znNode* n = handleNode()) n->makeDirty();
}

void BaseNode::makeClean() {
    if (znNode* n = handleNode()) n->makeClean();
}

const char* BaseNode::getUrlBase() {
    znNode* n = handleNode();
    return n ? n->getUrlBase() : nullptr;
}

int BaseNode::getID() {
    znNode* n = handleNode();
    return n ? n->getID() : 0;
}

// --- Node and Script ------------------------------------------------------

namespace {
// A name operation of a handle: the node's answer, or null without a node
// (the out-argument then receives null too).
template <class Lookup>
Field* onNode(BaseNode& handle, Field** out, Lookup lookup) {
    if (znNode* n = handle.handleNode()) return lookup(*n);
    if (out) *out = nullptr;
    return nullptr;
}
}  // namespace

Field* Node::getEventIn(const char* name) {
    return onNode(*this, nullptr, [&](znNode& n) { return n.getEventIn(name); });
}
Field* Node::getEventIn(const char* name, Field** out) {
    return onNode(*this, out, [&](znNode& n) { return n.getEventIn(name, out); });
}
Field* Node::getEventOut(const char* name) {
    return onNode(*this, nullptr, [&](znNode& n) { return n.getEventOut(name); });
}
Field* Node::getEventOut(const char* name, Field** out) {
    return onNode(*this, out, [&](znNode& n) { return n.getEventOut(name, out); });
}
Field* Node::getExposedField(const char* name) {
    return onNode(*this, nullptr, [&](znNode& n) { return n.getExposedField(name); });
}
Field* Node::getExposedField(const char* name, Field** out) {
    return onNode(*this, out, [&](znNode& n) { return n.getExposedField(name, out); });
}

Node& Node::operator=(BaseNode& other) {
    BaseNode::operator=(other);
    return *this;
}

Field* Script::getField(const char* name) {
    return onNode(*this, nullptr, [&](znNode& n) { return n.getField(name); });
}
Field* Script::getField(const char* name, Field** out) {
    return onNode(*this, out, [&](znNode& n) { return n.getField(name, out); });
}
Field* Script::getEventOut(const char* name) {
    return onNode(*this, nullptr, [&](znNode& n) { return n.getEventOut(name); });
}
Field* Script::getEventOut(const char* name, Field** out) {
    return onNode(*this, out, [&](znNode& n) { return n.getEventOut(name, out); });
}

void Script::processEvents(int count, Event** events) {
    for (int i = 0; i < count; ++i)
        if (events[i]) processEvent(*events[i]);
}

void Script::processEvent(Event&) {}

void Script::eventsProcessed() {}

void Script::shutdown() {
    if (internal) {
        internal->browser = nullptr;
        internal->node = nullptr;
    }
}

Script& Script::operator=(BaseNode& other) {
    BaseNode::operator=(other);
    return *this;
}

// --- Builtin ---------------------------------------------------------------

Field* Builtin::getEventIn(const char* name) { return Node::getEventIn(name); }
Field* Builtin::getEventIn(const char* name, Field** out) { return Node::getEventIn(name, out); }
Field* Builtin::getEventOut(const char* name) { return Node::getEventOut(name); }
Field* Builtin::getEventOut(const char* name, Field** out) { return Node::getEventOut(name, out); }
Field* Builtin::getExposedField(const char* name) { return Node::getExposedField(name); }
Field* Builtin::getExposedField(const char* name, Field** out) {
    return Node::getExposedField(name, out);
}

void Builtin::setInternal(znNode*) {}

Builtin* Builtin::getCPPScript() { return nullptr; }

const char* Builtin::getName(znInternal*) {
    znNode* n = handleNode();
    return n ? n->getName() : nullptr;
}

Builtin* Builtin::getBuiltin(SFNode& value) {
    BaseNode handle = value.getValue();
    return handle.handleNode();
}

void Builtin::getBuiltin(MFNode& value, std::vector<Builtin*>& out) {
    std::vector<BaseNode>* nodes = nullptr;
    value.getValue(&nodes);
    for (BaseNode& handle : *nodes)
        if (znNode* n = handle.handleNode()) out.push_back(n);
}

void Builtin::getBuiltin(MFNode& value, Builtin** out) {
    std::vector<Builtin*> found;
    getBuiltin(value, found);
    for (size_t i = 0; i < found.size(); ++i) out[i] = found[i];
}

int Builtin::callAction(SFNode& node, SFTime& time, int mode, void* data) {
    return getBuiltin(node)->action(time, mode, data);
}

void Builtin::callAction(MFNode& nodes, SFTime& time, void** data) {
    std::vector<Builtin*> found;
    getBuiltin(nodes, found);
    for (size_t i = 0; i < found.size(); ++i) found[i]->action(time, 1, data ? data[i] : nullptr);
}

std::ostream& operator<<(std::ostream& os, Node& node) { return os << node.getID(); }
