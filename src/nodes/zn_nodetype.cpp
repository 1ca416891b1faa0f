#include "nodes/zn_nodetype.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <ostream>
#include <string>
#include <string_view>

#include "browser/zn_browser_intern.h"
#include "database/zn_database.h"
#include "fields/zn_exception.h"
#include "fields/zn_values.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "nodes/node_messages.h"
#include "nodes/zn_node.h"
#include "scripts/zn_scriptinterface.h"

namespace {
constexpr const char* kChangedSuffix = "_changed";
}

znNodeType::znNodeType(int typeID, const char* typeName, std::vector<const char*>& urls, Browser* b,
                       int isSensorType, int isToplevelType, char* init)
    : id(typeID), systemProto(0), sensor(isSensorType), toplevel(isToplevelType), supportMsgShown(0),
      interface(nullptr), browser(b), scriptID(0), depth(0), paused(0), indentBuffer{},
      initFn(init) {
    if (!typeName) {
        // A broken caller ends its load, not the process.
        znAlert(kNodeTypeNeedsName);
        throw std::invalid_argument(kNodeTypeNeedsName);
    }
    if (initFn && std::strncmp(initFn, kNotSupportedMark, std::strlen(kNotSupportedMark)) == 0) {
        char message[512];
        std::snprintf(message, sizeof message, kNotSupported, typeName);
        znMessage(message);
    }
    name = typeName;
    std::memset(indentBuffer, ' ', sizeof indentBuffer);
    const bool noImplementation = urls.empty() || (urls.size() == 1 && (!urls[0] || !*urls[0]));
    if (!noImplementation) interface = znScriptInterface::newInterface(urls, *this);
}

znNodeType::~znNodeType() {
    for (znField* f : fields) delete f;
    delete interface;
}

int znNodeType::addData(const char* fieldName, FieldType type, DataType kind, FieldFlags& flags,
                        const char* value) {
    znField* f = znField::newField(browser, nullptr, type, kind, flags, value, nullptr);
    if (!f) return -1;
    fields.push_back(f);
    int index = static_cast<int>(fields.size()) - 1;
    // A second entry of one name keeps the first index.
    auto entry = dataIDs.emplace(fieldName ? fieldName : "", index);
    if (entry.second) dataIndex.emplace(entry.first->first, index);
    firstNames.push_back(entry.second ? entry.first->first.c_str() : nullptr);
    urlKnown = -1;
    return index;
}

bool znNodeType::namesFiles() {
    if (urlKnown < 0) urlKnown = getDataID("url") >= 0 ? 1 : 0;
    return urlKnown == 1;
}

int znNodeType::getDataIDFrom(const char* fieldName, int from) {
    if (fieldName == nullptr) return -1;
    const int count = static_cast<int>(firstNames.size());
    for (int i = from < 0 ? 0 : from; i < count; ++i) {
        const char* name = firstNames[i];
        if (name != nullptr && name[0] == fieldName[0] && std::strcmp(name, fieldName) == 0) return i;
    }
    return getDataID(fieldName);
}

int znNodeType::getDataID(const char* fieldName) {
    if (!fieldName) return -1;
    const std::string_view name(fieldName);
    auto found = dataIndex.find(name);
    if (found != dataIndex.end()) return found->second;
    size_t at = name.find(kChangedSuffix);
    if (at == std::string_view::npos) return -1;
    found = dataIndex.find(name.substr(0, at));
    return found != dataIndex.end() ? found->second : -1;
}

const char* znNodeType::getDataName(int index) {
    for (const auto& entry : dataIDs)
        if (entry.second == index) return entry.first.c_str();
    return nullptr;
}

Field* znNodeType::getData(int index) {
    if (index < 0 || index >= static_cast<int>(fields.size()) || !fields[index])
        znThrow<Exception>(kInvalidFieldID, index);
    return fields[index]->toField();
}

Field* znNodeType::getData(int index, Field*) {
    if (index < 0 || index >= static_cast<int>(fields.size()) || !fields[index]) return nullptr;
    return fields[index]->toField();
}

Field* znNodeType::getData(const char* fieldName) {
    int index = getDataID(fieldName);
    // An unknown name throws an exception that carries no text and leaves
    // no line on the error stream.
    if (index == -1) throw Exception();
    return getData(index);
}

Field* znNodeType::getData(const char* fieldName, Field*) {
    return getData(getDataID(fieldName), static_cast<Field*>(nullptr));
}

namespace {
// The caught text is passed on as it is, and without a second line.
template <class E>
Field* typeLookup(znNodeType& type, const char* name) {
    try {
        return type.getData(name);
    } catch (Exception& caught) {
        E specific;
        std::memcpy(specific.text, caught.text, sizeof specific.text);
        throw specific;
    }
}
}  // namespace

Field* znNodeType::getEventIn(const char* n) { return typeLookup<InvalidEventInException>(*this, n); }
Field* znNodeType::getEventIn(const char* n, Field* f) { return getData(n, f); }
Field* znNodeType::getEventOut(const char* n) { return typeLookup<InvalidEventOutException>(*this, n); }
Field* znNodeType::getEventOut(const char* n, Field* f) { return getData(n, f); }
Field* znNodeType::getField(const char* n) { return typeLookup<InvalidFieldException>(*this, n); }
Field* znNodeType::getField(const char* n, Field* f) { return getData(n, f); }

const char* znNodeType::indent() {
    // Two blanks per level; the buffer bounds the deepest level.
    constexpr int kDeepest = (sizeof indentBuffer - 1) / 2;
    int level = std::clamp(depth, 0, kDeepest);
    std::memset(indentBuffer, ' ', sizeof indentBuffer);
    indentBuffer[2 * level] = '\0';
    return indentBuffer;
}

void znNodeType::print(std::ostream& os) {
    if (systemProto) return;
    os << indent() << "PROTO " << name << " [" << "\n";
    for (size_t i = 0; i < fields.size(); ++i) {
        znField* f = fields[i];
        if (!f) continue;
        const bool exposed = f->getFlags().exposed();
        // The set_ half of an exposedField is written with its field half.
        if (exposed && f->getDataType() != field) continue;
        if (exposed)
            os << indent() << "  exposedField ";
        else
            os << indent() << "  " << f->getDataType();
        const char* entry = getDataName(static_cast<int>(i));
        os << f->getFieldType() << (entry ? entry : "") << "\t";
        // A node-valued default is written as nodes, so that the text reads
        // back; the others as their value text.
        if (f->getDataType() == field && znNode::isNodeValued(f)) {
            znNode::printNodes(os, *f, *this);
            continue;
        }
        if (f->getDataType() == field) os << *f;
        os << "\n";
    }
    os << indent() << "] { ";
    znDatabase* db = browser ? browser->getDatabase() : nullptr;
    const std::vector<znProtoBodyEntry>* body = db ? db->getProtoBody(name.c_str()) : nullptr;
    if (body) {
        auto* world = dynamic_cast<znBrowserIntern*>(browser);
        for (const znProtoBodyEntry& entry : *body) {
            if (entry.kind == 0) {
                os << entry.text << entry.number << "\n";
            } else if (entry.kind == 1 && world) {
                int nodeID = world->getNodeID(entry.text.c_str());
                try {
                    world->getNode(nodeID)->print(os);
                    os << indent();
                } catch (znInvalidNodeIDException&) {
                    char message[512];
                    std::snprintf(message, sizeof message, kSkippingInvalidNode, nodeID);
                    znMessage(message);
                }
            }
        }
    }
    os << "}\n";
}

void znNodeType::printSupportMsg() {
    if (interface || !systemProto || supportMsgShown) return;
    std::string format = std::string(kSupportMsgHead) + kSupportPage + kSupportMsgTail;
    char message[1024];
    std::snprintf(message, sizeof message, format.c_str(), name.c_str());
    znAlert(message);
    supportMsgShown = 1;
}

int znNodeType::initialize(znNode& node) { return interface ? interface->initialize(node) : 0; }
void znNodeType::shutdown(znNode& node) {
    if (interface) interface->shutdown(node);
}
void znNodeType::eventsProcessed(znNode& node) {
    if (interface) interface->eventsProcessed(node);
}
void znNodeType::processEvents(znNode& node, int count, Event** events) {
    if (interface) interface->processEvents(node, count, events);
}
void znNodeType::processEvent(znNode& node, Event& event) {
    if (interface) interface->processEvent(node, event);
}
int znNodeType::action(znNode& node, SFTime& time, int mode, void* data) {
    return interface ? interface->action(node, time, mode, data) : 0;
}
Builtin* znNodeType::getCPPScript(znNode& node) { return interface ? interface->getCPPScript(node) : nullptr; }
void znNodeType::pause(znNode& node, int n) {
    paused = 1;
    if (interface) interface->pause(node, n);
}
void znNodeType::resume(znNode& node, int n) {
    paused = 0;
    if (interface) interface->resume(node, n);
}
void znNodeType::save(znNode& node, int n) {
    if (interface) interface->save(node, n);
}
void znNodeType::restore(znNode& node, int n) {
    if (interface) interface->restore(node, n);
}
void znNodeType::requestInfo(znNode& node, std::vector<int>& out) {
    if (interface) interface->requestInfo(node, out);
}
