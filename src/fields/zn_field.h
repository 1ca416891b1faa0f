// The field model: field type numbers, kinds and flags, and znField, the
// bookkeeping side of every runtime field (IS links, event index, owner).
#ifndef ZN_FIELD_H
#define ZN_FIELD_H

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "browser/zn_browser.h"
#include "fields/zn_field_list.h"
#include "fields/zn_field_pool.h"
#include "fields/zn_is_names.h"

class Field;
class znNode;

// The parser maps its type tokens one to one onto these numbers, and code
// compares with them: the order is fixed.
enum FieldType : int {
    SFBoolType = 20, SFColorType, SFFloatType, SFImageType, SFInt32Type, SFNodeType,
    SFRotationType, SFStringType, SFTimeType, SFVec2fType, SFVec3fType,
    MFColorType, MFFloatType, MFInt32Type, MFNodeType, MFRotationType, MFStringType,
    MFTimeType, MFVec2fType, MFVec3fType,
};
constexpr int kFirstFieldType = SFBoolType;
constexpr int kLastFieldType = MFVec3fType;
// The second numbering, 0 to 19, in the same order.
constexpr int kFieldTypeAltOffset = SFBoolType;

enum DataType { field = 0, eventOut = 1, eventIn = 2 };

// One word of flags; only the top two bits mean anything.
struct FieldFlags {
    uint32_t bits = 0;

    static constexpr uint32_t kExposed = 1u << 31;
    static constexpr uint32_t kValueSet = 1u << 30;

    bool exposed() const { return bits & kExposed; }
    bool valueSet() const { return bits & kValueSet; }
};

std::ostream& operator<<(std::ostream& os, FieldType type);
std::ostream& operator<<(std::ostream& os, DataType type);

class znField {
public:
    explicit znField(Browser* browser = nullptr);
    znField(const znField& other);

    // Every runtime field lives in the field pool.
    static void* operator new(std::size_t size) { return znFieldPool::allocate(size); }
    static void operator delete(void* block, std::size_t size) { znFieldPool::release(block, size); }

    // Makes the runtime field of `type` (20 to 39, or 0 to 19); answers null
    // for any other number.
    static znField* newField(Browser* browser, znNode* node, FieldType type, DataType kind,
                             FieldFlags& flags, const char* value,
                             std::vector<znField*>* remote);

    virtual znField& operator=(const znField& other);
    virtual ~znField();
    // The defaults serve a field that only stands for others (IS): they pass
    // the call on to the real fields. Concrete classes replace them all.
    virtual void setData(void* data);
    virtual void setData(const char* text);
    virtual void getData(char* buffer);
    virtual void* getData();
    virtual Field* toField();
    // The value side of this very field, without passing on to real fields.
    virtual Field* ownValue();
    virtual void valueChange();

    void setType(FieldType type, DataType kind, FieldFlags& flags);
    FieldType getFieldType() const { return fieldType; }
    DataType getDataType() const { return dataType; }
    FieldFlags getFlags() const { return flags; }

    void getRealData(std::vector<znField*>* out);
    void setParentNode(znNode* node) { parentNode = node; }
    znNode* getParentNode() { return parentNode; }
    // Only the first index given counts: it stands for the life of the field.
    void setEventIndex(int index);
    int getEventIndex() const { return eventIndex; }
    int isVirtual() const { return remoteData != nullptr; }
    void addRemoteData(std::vector<znField*>* fields);
    void getRemoteIndexes(std::vector<int>& out);
    void addISNames(const std::vector<char*>* names);
    // Appends copies that the caller frees with free().
    void getISNames(std::vector<char*>* out);
    Browser* getBrowser() { return browser; }
    // The value's VRML text appended to `out` whole, however long: for the
    // writers of worlds, which must not cut a value as the buffer of
    // getData(char*) does.
    virtual void getText(std::string& out);

protected:
    // The fields this one stands for, or null (also for an empty list, which
    // still makes the field virtual but names no field to read from).
    znField* firstRemote() const;
    // The common tail of every load: the value now differs from what the
    // owner last saw.
    void markLoaded();
    void postChange(Field& value);

    znFieldList* remoteData;        // owning the list, the fields borrowed
    const znISNames* isNames;       // one reference held, the list shared
    int eventIndex;
    znNode* parentNode;  // back pointer to the owner, null for a type's default
    Browser* browser;    // borrowed
    // Every runtime field carries these, so they are kept to a byte each
    // (dirty is 0 or 1, the types are below 40): with the flags they fill
    // one word, which keeps the common fields one step smaller in the pool.
    int dirty : 8;
    FieldType fieldType : 8;
    DataType dataType : 8;
    FieldFlags flags;

    friend class Field;
};

// A field's VRML text, whole.
std::ostream& operator<<(std::ostream& os, znField& f);
// Each field on a line of its own behind a tab; null entries as "\tNULL".
std::ostream& operator<<(std::ostream& os, std::vector<znField*>& fields);

// Size of every buffer that holds the text of one field value.
constexpr int kFieldTextBufferSize = 100000;

#endif
