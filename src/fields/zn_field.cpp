#include "fields/zn_field.h"

#include <ostream>

#include "fields/all.h"
#include "fields/field_messages.h"
#include "nodes/zn_node.h"

std::ostream& operator<<(std::ostream& os, FieldType type) {
    if (type >= kFirstFieldType && type <= kLastFieldType) os << kFieldTypeNames[type - kFirstFieldType];
    return os;
}

std::ostream& operator<<(std::ostream& os, DataType type) {
    if (type >= field && type <= eventIn) os << kDataTypeNames[type];
    return os;
}

// The pool works in steps of 16 bytes: one more word here moves most
// runtime fields up a step.
static_assert(sizeof(void*) != 8 || sizeof(znField) == 56, "znField grew");

znField::znField(Browser* b)
    : remoteData(nullptr), isNames(nullptr), eventIndex(-1), parentNode(nullptr), browser(b),
      dirty(1), fieldType(SFBoolType), dataType(field), flags() {}

znField::znField(const znField& other)
    : remoteData(nullptr), isNames(nullptr), eventIndex(-1), parentNode(nullptr), browser(nullptr),
      dirty(1), fieldType(SFBoolType), dataType(field), flags() {
    znField::operator=(other);
    dirty = 1;
}

znField& znField::operator=(const znField& other) {
    if (this == &other) return *this;
    if (!other.remoteData || other.remoteData->empty()) {
        znFieldList::release(remoteData);
        remoteData = nullptr;
    } else {
        remoteData = znFieldList::assign(remoteData, *other.remoteData);
    }
    // The new list is held before the old one is let go: they may be one.
    znISNames::ref(other.isNames);
    znISNames::unref(isNames);
    isNames = other.isNames;
    parentNode = other.parentNode;
    browser = other.browser;
    eventIndex = other.eventIndex;
    fieldType = other.fieldType;
    dataType = other.dataType;
    flags = other.flags;
    return *this;
}

znField::~znField() {
    znISNames::unref(isNames);
    znFieldList::release(remoteData);
}

znField* znField::newField(Browser* browser, znNode* node, FieldType type, DataType kind,
                           FieldFlags& flags, const char* value, std::vector<znField*>* remote) {
    int t = type;
    if (t >= 0 && t < kFirstFieldType) t += kFieldTypeAltOffset;
    znField* f = nullptr;
    switch (t) {
        case SFBoolType: f = new znSFBool(browser); break;
        case SFColorType: f = new znSFColor(browser); break;
        case SFFloatType: f = new znSFFloat(browser); break;
        case SFImageType: f = new znSFImage(browser); break;
        case SFInt32Type: f = new znSFInt32(browser); break;
        case SFNodeType: f = new znSFNode(browser); break;
        case SFRotationType: f = new znSFRotation(browser); break;
        case SFStringType: f = new znSFString(browser); break;
        case SFTimeType: f = new znSFTime(browser); break;
        case SFVec2fType: f = new znSFVec2f(browser); break;
        case SFVec3fType: f = new znSFVec3f(browser); break;
        case MFColorType: f = new znMFColor(browser); break;
        case MFFloatType: f = new znMFFloat(browser); break;
        case MFInt32Type: f = new znMFInt32(browser); break;
        case MFNodeType: f = new znMFNode(browser); break;
        case MFRotationType: f = new znMFRotation(browser); break;
        case MFStringType: f = new znMFString(browser); break;
        case MFTimeType: f = new znMFTime(browser); break;
        case MFVec2fType: f = new znMFVec2f(browser); break;
        case MFVec3fType: f = new znMFVec3f(browser); break;
        default: return nullptr;
    }
    f->setParentNode(node);
    f->setType(static_cast<FieldType>(t), kind, flags);
    // The initial text is converted before any remote list exists, so it is
    // never forwarded to the real fields.
    if (value) f->setData(value);
    if (remote) f->addRemoteData(remote);
    return f;
}

void znField::setData(void* data) {
    if (remoteData)
        for (znField* real : *remoteData)
            if (real) real->setData(data);
    dirty = 1;
}

void znField::setData(const char* text) {
    if (remoteData)
        for (znField* real : *remoteData)
            if (real) real->setData(text);
    dirty = 1;
}

void znField::getData(char* buffer) {
    if (znField* real = firstRemote(); real && buffer) real->getData(buffer);
}

void* znField::getData() {
    znField* real = firstRemote();
    return real ? real->getData() : nullptr;
}

Field* znField::toField() { return dynamic_cast<Field*>(this); }

Field* znField::ownValue() { return dynamic_cast<Field*>(this); }

void znField::valueChange() {
    if (remoteData)
        for (znField* real : *remoteData)
            if (real) real->valueChange();
}

void znField::setType(FieldType type, DataType kind, FieldFlags& f) {
    fieldType = type;
    dataType = kind;
    flags = f;
}

void znField::getRealData(std::vector<znField*>* out) {
    if (!out) return;
    if (remoteData)
        out->assign(remoteData->begin(), remoteData->end());
    else
        out->push_back(this);
}

void znField::setEventIndex(int index) {
    if (eventIndex == -1) eventIndex = index;
}

void znField::addRemoteData(std::vector<znField*>* fields) {
    if (!fields) return;
    remoteData = znFieldList::append(remoteData, fields->data(), fields->size());
}

void znField::getRemoteIndexes(std::vector<int>& out) {
    if (!remoteData) return;
    for (znField* real : *remoteData) {
        if (!real) continue;
        if (real->getEventIndex() == -1 && browser) real->setEventIndex(browser->nextEventIndex());
        out.push_back(real->getEventIndex());
    }
}

void znField::addISNames(const std::vector<char*>* names) {
    if (!names) return;
    const znISNames* more = znISNames::intern(isNames, *names);
    if (!more) return;
    znISNames::unref(isNames);
    isNames = more;
}

void znField::getISNames(std::vector<char*>* out) {
    if (out && isNames) isNames->copyOut(*out);
}

znField* znField::firstRemote() const {
    if (!remoteData || remoteData->empty()) return nullptr;
    return (*remoteData)[0];
}

void znField::markLoaded() {
    dirty = 1;
    if (parentNode) parentNode->makeDirty();
}

void znField::postChange(Field& value) {
    if (eventIndex == -1 || !browser) return;
    if (dataType == eventIn)
        browser->postEventIn(eventIndex, value, -1.0);
    else
        browser->postEventOut(eventIndex, value, -1.0);
}

void znField::getText(std::string& out) {
    if (znField* real = firstRemote()) real->getText(out);
}

std::ostream& operator<<(std::ostream& os, znField& f) {
    std::string text;
    f.getText(text);
    return os << text;
}

std::ostream& operator<<(std::ostream& os, std::vector<znField*>& fields) {
    for (znField* f : fields) {
        if (f)
            os << '\t' << *f << '\n';
        else
            os << kNullFieldLine << '\n';
    }
    return os;
}
