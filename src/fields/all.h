// The twenty runtime field classes: a value class of fields/zn_values.h as
// the first base, znField as the second. What differs between them is the
// value class; the runtime side is written once in znFieldOf.
#ifndef ZN_ALL_H
#define ZN_ALL_H

#include "fields/zn_field.h"
#include "fields/zn_values.h"

template <class V, FieldType T>
class znFieldOf : public V, public znField {
public:
    explicit znFieldOf(Browser* b) : V(), znField(b) { initType(); }
    znFieldOf(const znFieldOf& other) : V(other), znField(other) {}
    // The value forms of the value class, without a browser.
    template <class... Args,
              class = std::enable_if_t<std::is_constructible_v<V, Args&&...> &&
                                       !(std::is_base_of_v<znField, std::decay_t<Args>> || ...) &&
                                       !(std::is_same_v<std::decay_t<Args>, std::nullptr_t> || ...)>>
    explicit znFieldOf(Args&&... args) : V(std::forward<Args>(args)...), znField(nullptr) {
        initType();
    }

    char* toString() override;
    int getType() override { return fieldType; }
    int isDirty() override { return dirty; }
    void makeDirty() override { dirty = 1; }
    void makeClean() override { dirty = 0; }
    ~znFieldOf() override = default;

    // Assigns the value only: the bookkeeping of the target stays.
    znFieldOf& operator=(const znFieldOf& other);
    znField& operator=(const znField& other) override;
    void valueChange() override;
    void* getData() override;
    void setData(void* data) override;
    void getData(char* buffer) override;
    void setData(const char* text) override;
    void getText(std::string& out) override;
    Field* toField() override;
    Field* ownValue() override { return this; }

protected:
    const znFieldList* standsFor() const override { return remoteData; }
    void changed() override { valueChange(); }

private:
    void initType() {
        fieldType = T;
        dataType = field;
    }
    // The text of the value through `write`, which takes the raw value and
    // its field type.
    template <class Write>
    void writeValue(Write write);
    void writeText(char* buffer);
};

// The field type of the runtime fields whose value class is V; none for
// any other class.
template <class V>
struct znFieldTypeOf {
    static constexpr int value = -1;
};

// A value as class V: a runtime field of V's type is one without asking the
// language, which is costly across these bases; anything else is asked.
template <class V>
V* znValueAs(Field* value) {
    if (value == nullptr) return nullptr;
    if (znFieldTypeOf<V>::value >= 0 && value->getType() == znFieldTypeOf<V>::value) return static_cast<V*>(value);
    return dynamic_cast<V*>(value);
}

#define ZN_RUNTIME_FIELD(Name, Value, Type)           \
    class Name : public znFieldOf<Value, Type> {      \
    public:                                           \
        using znFieldOf::znFieldOf;                   \
        using znFieldOf::operator=;                   \
    };                                                \
    template <>                                       \
    struct znFieldTypeOf<Value> {                     \
        static constexpr int value = Type;            \
    }

ZN_RUNTIME_FIELD(znSFBool, SFBool, SFBoolType);
ZN_RUNTIME_FIELD(znSFColor, SFColor, SFColorType);
ZN_RUNTIME_FIELD(znSFFloat, SFFloat, SFFloatType);
ZN_RUNTIME_FIELD(znSFImage, SFImage, SFImageType);
ZN_RUNTIME_FIELD(znSFInt32, SFInt32, SFInt32Type);
ZN_RUNTIME_FIELD(znSFNode, SFNode, SFNodeType);
ZN_RUNTIME_FIELD(znSFRotation, SFRotation, SFRotationType);
ZN_RUNTIME_FIELD(znSFString, SFString, SFStringType);
ZN_RUNTIME_FIELD(znSFTime, SFTime, SFTimeType);
ZN_RUNTIME_FIELD(znSFVec2f, SFVec2f, SFVec2fType);
ZN_RUNTIME_FIELD(znSFVec3f, SFVec3f, SFVec3fType);
ZN_RUNTIME_FIELD(znMFColor, MFColor, MFColorType);
ZN_RUNTIME_FIELD(znMFFloat, MFFloat, MFFloatType);
ZN_RUNTIME_FIELD(znMFInt32, MFInt32, MFInt32Type);
ZN_RUNTIME_FIELD(znMFNode, MFNode, MFNodeType);
ZN_RUNTIME_FIELD(znMFRotation, MFRotation, MFRotationType);
ZN_RUNTIME_FIELD(znMFString, MFString, MFStringType);
ZN_RUNTIME_FIELD(znMFTime, MFTime, MFTimeType);
ZN_RUNTIME_FIELD(znMFVec2f, MFVec2f, MFVec2fType);
ZN_RUNTIME_FIELD(znMFVec3f, MFVec3f, MFVec3fType);

#undef ZN_RUNTIME_FIELD

#endif
