// The values that scripts and node classes work with. Each stands alone as a
// plain value and is also the first base of a runtime field (fields/all.h).
//
// A plain value has nobody to forward to and nobody to tell. A runtime field
// answers the two hooks `standsFor` and `changed`: every read then asks the
// first real field it stands for (IS), every write goes to each real field,
// then to the local copy, and ends in an event. The operations are written
// once here, so a call through either side of a runtime field behaves alike.
#ifndef ZN_VALUES_H
#define ZN_VALUES_H

#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "fields/zn_array.h"
#include "fields/zn_exception.h"
#include "fields/zn_field_list.h"
#include "fields/field_messages.h"
#include "nodes/zn_vrml.h"

class znField;

// What events carry: a field that the receiver only reads.
class ConstField {
public:
    virtual ~ConstField() = default;
};

class Field : public ConstField {
public:
    // A plain value answers null; a runtime field a copy of its VRML text,
    // which the caller frees with free().
    virtual char* toString() { return nullptr; }
    virtual Field* clone() = 0;
    virtual int getType() { return -1; }
    virtual int isDirty() { return 1; }
    virtual void makeDirty() {}
    virtual void makeClean() {}
    ~Field() override = default;

protected:
    // The fields this value stands for, or null for a plain value.
    virtual const znFieldList* standsFor() const { return nullptr; }
    // Called at the end of every write through a value operation.
    virtual void changed() {}

    static Field* valueSide(znField* f);

    // The first real field as the same value class, or null.
    template <class V>
    V* firstReal() const {
        const znFieldList* real = standsFor();
        if (!real || real->empty() || !(*real)[0]) return nullptr;
        return sameClass<V>(valueSide((*real)[0]));
    }
    // Applies `op` to each real field in order; answers whether the value
    // stands for other fields at all.
    template <class V, class Op>
    bool forward(Op op) const {
        const znFieldList* real = standsFor();
        if (!real) return false;
        for (znField* f : *real)
            if (V* v = f ? sameClass<V>(valueSide(f)) : nullptr) op(*v);
        return true;
    }
    // `other` as this value's class V. Only runtime fields stand for others,
    // and two runtime fields of one field type are of one class, so equal
    // types spare the language's costly question.
    template <class V>
    V* sameClass(Field* other) const {
        if (other == nullptr) return nullptr;
        if (other->getType() == const_cast<Field*>(this)->getType()) return static_cast<V*>(other);
        return dynamic_cast<V*>(other);
    }
};

class MField : public Field {
public:
    virtual int getSize() = 0;
    virtual void clear() = 0;
    virtual void remove(int index) = 0;
};

// ---------------------------------------------------------------------------
// Single values of one number: SFBool, SFInt32, SFFloat, SFTime.

template <class Self, class T, int Default>
class SFScalar : public Field {
public:
    SFScalar() : value(static_cast<T>(Default)) {}
    explicit SFScalar(T v) : value(v) {}
    SFScalar(const SFScalar&) = default;

    Field* clone() override { return new (std::nothrow) Self(static_cast<const Self&>(*this)); }
    virtual T getValue() {
        if (Self* r = firstReal<Self>()) return r->getValue();
        return value;
    }
    virtual void setValue(T v) {
        forward<Self>([&](Self& r) { r.setValue(v); });
        value = v;
        changed();
    }
    virtual void setValue(Self& other) { setValue(other.getValue()); }

protected:
    SFScalar& assign(const Self& other) {
        setValue(const_cast<Self&>(other).getValue());
        return *this;
    }
    void* rawValue() { return &value; }
    void loadRaw(const void* p) { value = *static_cast<const T*>(p); }
    void resetToDefault() { value = static_cast<T>(Default); }

    T value;
};

class SFBool : public SFScalar<SFBool, int, 0> {
public:
    using SFScalar::SFScalar;
    SFBool(const SFBool&) = default;
    SFBool& operator=(const SFBool& o) { assign(o); return *this; }
};
class SFInt32 : public SFScalar<SFInt32, int, 0> {
public:
    using SFScalar::SFScalar;
    SFInt32(const SFInt32&) = default;
    SFInt32& operator=(const SFInt32& o) { assign(o); return *this; }
};
class SFFloat : public SFScalar<SFFloat, float, 0> {
public:
    using SFScalar::SFScalar;
    SFFloat(const SFFloat&) = default;
    SFFloat& operator=(const SFFloat& o) { assign(o); return *this; }
};
class SFTime : public SFScalar<SFTime, double, -1> {
public:
    using SFScalar::SFScalar;
    SFTime(const SFTime&) = default;
    SFTime& operator=(const SFTime& o) { assign(o); return *this; }
};

// ---------------------------------------------------------------------------
// Single values of W floats: SFColor, SFVec2f, SFVec3f, SFRotation.

template <class Self, int W>
class SFArray : public Field {
public:
    SFArray() : value(Self::kDefault, W) {}
    explicit SFArray(std::vector<float>& v) : value(v.data(), static_cast<int>(v.size())) {}
    explicit SFArray(const float* v) : value(v, W) {}
    SFArray(const SFArray&) = default;

    Field* clone() override { return new (std::nothrow) Self(static_cast<const Self&>(*this)); }
    virtual void getValue(_znArray<float>** out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        *out = &value;
    }
    virtual void getValue(_znArray<float>& out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        out = value;
    }
    virtual void getValue(std::vector<float>& out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        out.assign(value.data, value.data + value.count);
    }
    // Writes exactly the current count of floats.
    virtual void getValue(float* out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        std::copy(value.data, value.data + value.count, out);
    }
    // The vector's size becomes the count, whatever the width of the type.
    virtual void setValue(std::vector<float>& v) {
        forward<Self>([&](Self& r) { r.setValue(v); });
        value.resize(static_cast<int>(v.size()));
        std::copy(v.begin(), v.end(), value.data);
        changed();
    }
    // Reads exactly the current count of floats.
    virtual void setValue(float* v) {
        forward<Self>([&](Self& r) { r.setValue(v); });
        std::copy(v, v + value.count, value.data);
        changed();
    }
    virtual void setValue(Self& other) {
        _znArray<float>* source = nullptr;
        other.getValue(&source);
        _znArray<float> copy(*source);
        forward<Self>([&](Self& r) { r.setValue(other); });
        value = copy;
        changed();
    }

protected:
    float component(int i) {
        if (Self* r = firstReal<Self>()) return r->component(i);
        return i < value.count ? value.data[i] : 0.0f;
    }
    void setComponents(const float* v) {
        forward<Self>([&](Self& r) { r.setComponents(v); });
        value.resize(W);
        std::copy(v, v + W, value.data);
        changed();
    }
    SFArray& assign(const Self& other) {
        setValue(const_cast<Self&>(other));
        return *this;
    }
    void* rawValue() { return &value; }
    void loadRaw(const void* p) { value = *static_cast<const _znArray<float>*>(p); }
    void resetToDefault() {
        value.resize(W);
        std::copy(Self::kDefault, Self::kDefault + W, value.data);
    }

    _znArray<float> value;
};

class SFColor : public SFArray<SFColor, 3> {
public:
    static constexpr float kDefault[3] = {0, 0, 0};
    using SFArray::SFArray;
    using SFArray::getValue;
    using SFArray::setValue;
    SFColor(const SFColor&) = default;
    SFColor(float r, float g, float b) { setValue(r, g, b); }
    SFColor& operator=(const SFColor& o) { assign(o); return *this; }
    virtual float getRed() { return component(0); }
    virtual float getGreen() { return component(1); }
    virtual float getBlue() { return component(2); }
    virtual void setValue(float r, float g, float b) {
        const float v[3] = {r, g, b};
        setComponents(v);
    }
};

class SFVec2f : public SFArray<SFVec2f, 2> {
public:
    static constexpr float kDefault[2] = {0, 0};
    using SFArray::SFArray;
    using SFArray::getValue;
    using SFArray::setValue;
    SFVec2f(const SFVec2f&) = default;
    SFVec2f(float x, float y) { setValue(x, y); }
    SFVec2f& operator=(const SFVec2f& o) { assign(o); return *this; }
    virtual float getX() { return component(0); }
    virtual float getY() { return component(1); }
    virtual void setValue(float x, float y) {
        const float v[2] = {x, y};
        setComponents(v);
    }
};

class SFVec3f : public SFArray<SFVec3f, 3> {
public:
    static constexpr float kDefault[3] = {0, 0, 0};
    using SFArray::SFArray;
    using SFArray::getValue;
    using SFArray::setValue;
    SFVec3f(const SFVec3f&) = default;
    SFVec3f(float x, float y, float z) { setValue(x, y, z); }
    SFVec3f& operator=(const SFVec3f& o) { assign(o); return *this; }
    virtual float getX() { return component(0); }
    virtual float getY() { return component(1); }
    virtual float getZ() { return component(2); }
    virtual void setValue(float x, float y, float z) {
        const float v[3] = {x, y, z};
        setComponents(v);
    }
};

class SFRotation : public SFArray<SFRotation, 4> {
public:
    static constexpr float kDefault[4] = {0, 0, 1, 0};
    using SFArray::SFArray;
    using SFArray::getValue;
    using SFArray::setValue;
    SFRotation(const SFRotation&) = default;
    SFRotation(float x, float y, float z, float angle) { setValue(x, y, z, angle); }
    SFRotation& operator=(const SFRotation& o) { assign(o); return *this; }
    virtual float getAxisX() { return component(0); }
    virtual float getAxisY() { return component(1); }
    virtual float getAxisZ() { return component(2); }
    virtual float getRotation() { return component(3); }
    virtual void getValue(float* x, float* y, float* z, float* angle) {
        *x = getAxisX();
        *y = getAxisY();
        *z = getAxisZ();
        *angle = getRotation();
    }
    virtual void setValue(float x, float y, float z, float angle) {
        const float v[4] = {x, y, z, angle};
        setComponents(v);
    }
};

// ---------------------------------------------------------------------------
// SFString: the characters always count their terminating zero.

// Makes `text` count its terminator, as every stored string does.
std::string znTerminated(std::string text);

class SFString : public Field {
public:
    // 257 zero characters: room for a name of 256.
    static constexpr int kDefaultSize = 257;
    SFString() : value(kDefaultSize, '\0') {}
    explicit SFString(const std::string& s) : value(znTerminated(s)) {}
    explicit SFString(const char* s) : SFString() { if (s) value.assign(s, std::strlen(s) + 1); }
    SFString(const SFString&) = default;
    SFString& operator=(const SFString& o) {
        setValue(const_cast<SFString&>(o));
        return *this;
    }

    Field* clone() override { return new (std::nothrow) SFString(*this); }
    virtual void getValue(std::string** out);
    virtual std::string getValue();
    virtual void setValue(std::string& text);
    virtual void setValue(SFString& other);
    virtual void getValue(char** out);
    virtual void setValue(char* text);

protected:
    void* rawValue() { return &value; }
    void loadRaw(const void* p) { value = *static_cast<const std::string*>(p); }
    void resetToDefault() { value.assign(kDefaultSize, '\0'); }

    std::string value;
};

// ---------------------------------------------------------------------------
// SFNode: a handle; copying it never copies the node.

class SFNode : public Field {
public:
    SFNode() = default;
    explicit SFNode(BaseNode& node) : value(node) {}
    SFNode(const SFNode&) = default;
    SFNode& operator=(const SFNode& o) {
        setValue(const_cast<SFNode&>(o));
        return *this;
    }

    Field* clone() override { return new (std::nothrow) SFNode(*this); }
    virtual void getValue(BaseNode** out);
    virtual BaseNode getValue();
    virtual void setValue(BaseNode& node);
    virtual void setValue(SFNode& other);

protected:
    void* rawValue() { return &value; }
    void loadRaw(const void* p) { value = *static_cast<const BaseNode*>(p); }
    void resetToDefault() { value = BaseNode(); }

    BaseNode value;
};

// ---------------------------------------------------------------------------
// SFImage: width, height, components and one int per pixel. A write on a
// value that stands for others goes only to them.

class SFImage : public Field {
public:
    struct imageInfo {
        int width = 0;
        int height = 0;
        int components = 0;
        std::vector<int> pixels;
    };

    SFImage() = default;
    SFImage(int width, int height, int components, std::vector<int>& pixels);
    SFImage(const SFImage&) = default;
    SFImage& operator=(const SFImage& o) {
        setValue(const_cast<SFImage&>(o));
        return *this;
    }

    Field* clone() override { return new (std::nothrow) SFImage(*this); }
    virtual int getWidth();
    virtual int getHeight();
    virtual int getComponents();
    virtual void getPixels(std::vector<int>& out);
    virtual void setValue(int width, int height, int components, std::vector<int>& pixels);
    virtual void setValue(SFImage& other);

protected:
    const imageInfo& current() const;
    void* rawValue() { return &image; }
    void loadRaw(const void* p);
    void resetToDefault() { image.width = image.height = image.components = 0; }

    imageInfo unused;  // never read
    imageInfo image;
};

// ---------------------------------------------------------------------------
// Lists of single elements: MFFloat, MFInt32, MFTime, MFNode, MFString.

// Throws ArrayIndexOutOfBoundsException with `format`, the class and `n`.
[[noreturn]] void znThrowBounds(const char* format, const char* className, int n);

template <class Self, class E, class S>
class MFList : public MField {
public:
    // Numbers travel by value, strings and handles by reference.
    using In = std::conditional_t<std::is_arithmetic_v<E>, E, E&>;

    MFList() = default;
    explicit MFList(std::vector<E>& v) : list(v) {}
    MFList(int n, E* v) : list(v, v + (n > 0 ? n : 0)) {}
    MFList(const MFList&) = default;

    Field* clone() override { return new (std::nothrow) Self(static_cast<const Self&>(*this)); }
    int getSize() override {
        if (Self* r = firstReal<Self>()) return r->getSize();
        return static_cast<int>(list.size());
    }
    void clear() override {
        forward<Self>([&](Self& r) { r.clear(); });
        list.clear();
        changed();
    }
    // An index out of range drops the last element.
    void remove(int i) override {
        forward<Self>([&](Self& r) { r.remove(i); });
        if (i >= 0 && i < static_cast<int>(list.size()))
            list.erase(list.begin() + i);
        else if (!list.empty())
            list.pop_back();
        changed();
    }
    virtual void getValue(std::vector<E>** out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        *out = &list;
    }
    virtual void getValue(std::vector<E>& out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        out = list;
    }
    virtual void getValue(int n, E* out) {
        for (int i = 0; i < n && i < getSize(); ++i) out[i] = get1Value(i);
    }
    virtual E get1Value(int i) {
        if (Self* r = firstReal<Self>()) return r->get1Value(i);
        if (i < 0 || i >= static_cast<int>(list.size())) znThrowBounds(kGet1ValueBounds, Self::kName, i);
        return list[i];
    }
    virtual void setValue(std::vector<E>& v) {
        forward<Self>([&](Self& r) { r.setValue(v); });
        list = v;
        changed();
    }
    // Takes the first n elements; n must be below the size of v, so the last
    // element of v can never be taken this way.
    virtual void setValue(int n, std::vector<E>& v) {
        forward<Self>([&](Self& r) { r.setValue(n, v); });
        if (n < 0 || n >= static_cast<int>(v.size())) znThrowBounds(kSetValueBounds, Self::kName, n);
        list.assign(v.begin(), v.begin() + n);
        changed();
    }
    virtual void setValue(int n, E* v) {
        forward<Self>([&](Self& r) { r.setValue(n, v); });
        list.clear();
        for (int i = 0; i < n; ++i) list.push_back(v[i]);
        changed();
    }
    // An index at or beyond the end grows the list.
    virtual void set1Value(int i, In v) {
        forward<Self>([&](Self& r) { r.set1Value(i, v); });
        growFor(i);
        if (i < 0) znThrowBounds(kSet1ValueBoundsList, Self::kName, i);
        list[i] = v;
        changed();
    }
    virtual void set1Value(int i, S& v) {
        E e = v.getValue();
        set1Value(i, e);
    }
    virtual void addValue(In v) {
        forward<Self>([&](Self& r) { r.addValue(v); });
        list.push_back(v);
        changed();
    }
    virtual void addValue(S& v) {
        E e = v.getValue();
        addValue(e);
    }
    // A gap is filled first, so inserting at the end puts the value before
    // the filler: use addValue to append.
    virtual void insertValue(int i, In v) {
        forward<Self>([&](Self& r) { r.insertValue(i, v); });
        growFor(i);
        if (i < 0) znThrowBounds(kInsertValueBounds, Self::kName, i);
        list.insert(list.begin() + i, v);
        changed();
    }
    virtual void insertValue(int i, S& v) {
        E e = v.getValue();
        insertValue(i, e);
    }

protected:
    MFList& assign(const Self& other) {
        std::vector<E> copy;
        const_cast<Self&>(other).getValue(copy);
        setValue(copy);
        return *this;
    }
    // The index is compared unsigned, the loop runs signed: a negative index
    // passes the test and adds nothing.
    void growFor(int i) {
        if (static_cast<unsigned>(i) < list.size()) return;
        for (int n = static_cast<int>(list.size()); n <= i; ++n) list.push_back(E());
    }
    void* rawValue() { return &list; }
    void loadRaw(const void* p) { list = *static_cast<const std::vector<E>*>(p); }
    void resetToDefault() { list.clear(); }

    std::vector<E> list;
};

// A gap filler is the element's value-initialised form: 0, a null handle or
// an empty string.
#define ZN_MF_LIST_COMMON(Name)                                       \
public:                                                              \
    static constexpr const char* kName = #Name;                      \
    using MFList::MFList;                                            \
    Name(const Name&) = default;                                     \
    Name& operator=(const Name& o) { assign(o); return *this; }

class MFFloat : public MFList<MFFloat, float, SFFloat> {
    ZN_MF_LIST_COMMON(MFFloat)
};
class MFInt32 : public MFList<MFInt32, int, SFInt32> {
    ZN_MF_LIST_COMMON(MFInt32)
};
class MFTime : public MFList<MFTime, double, SFTime> {
    ZN_MF_LIST_COMMON(MFTime)
};
class MFNode : public MFList<MFNode, BaseNode, SFNode> {
    ZN_MF_LIST_COMMON(MFNode)
};

class MFString : public MFList<MFString, std::string, SFString> {
    ZN_MF_LIST_COMMON(MFString)
    using MFList::getValue;
    using MFList::setValue;
    using MFList::get1Value;
    using MFList::set1Value;
    using MFList::addValue;
    using MFList::insertValue;

    // The stored characters of every element, as many as the list has.
    virtual void getValue(char** out);
    virtual void getValue(int n, char** out);
    // No index test: the caller must pass one in range.
    virtual void get1Value(int i, char** out);
    virtual void setValue(int n, char** texts);
    // These two refuse an index at or beyond the end instead of growing.
    virtual void set1Value(int i, char* text);
    virtual void addValue(char* text);
    virtual void insertValue(int i, char* text);
};

// ---------------------------------------------------------------------------
// Lists of W-float elements: MFColor, MFVec2f, MFVec3f, MFRotation.

template <class Self, int W, class S>
class MFArray : public MField {
public:
    using Element = _znArray<float>;

    MFArray() = default;
    MFArray(int n, float* v) { load(n, v); }
    explicit MFArray(std::vector<float>& v) { load(static_cast<int>(v.size()), v.data(), true); }
    MFArray(const MFArray&) = default;

    Field* clone() override { return new (std::nothrow) Self(static_cast<const Self&>(*this)); }
    int getSize() override {
        if (Self* r = firstReal<Self>()) return r->getSize();
        return static_cast<int>(list.size());
    }
    void clear() override {
        forward<Self>([&](Self& r) { r.clear(); });
        list.clear();
        changed();
    }
    void remove(int i) override {
        forward<Self>([&](Self& r) { r.remove(i); });
        if (i >= 0 && i < static_cast<int>(list.size()))
            list.erase(list.begin() + i);
        else if (!list.empty())
            list.pop_back();
        changed();
    }
    // One element per entry of `out`; null entries are skipped.
    virtual void getValue(std::vector<float*>& out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        for (size_t i = 0; i < out.size() && i < list.size(); ++i)
            if (out[i]) copyOut(list[i], out[i]);
    }
    virtual void getValue(int n, float (*out)[W]) {
        if (Self* r = firstReal<Self>()) return r->getValue(n, out);
        for (int i = 0; i < n && i < static_cast<int>(list.size()); ++i) copyOut(list[i], out[i]);
    }
    virtual void getValue(std::vector<Element>** out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        *out = &list;
    }
    virtual void getValue(std::vector<Element>& out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        out = list;
    }
    virtual void getValue(std::vector<float>& out) {
        if (Self* r = firstReal<Self>()) return r->getValue(out);
        out.clear();
        for (const Element& e : list) out.insert(out.end(), e.data, e.data + e.count);
    }
    // `n` counts floats here, not elements.
    virtual void getValue(int n, float* out) {
        if (Self* r = firstReal<Self>()) return r->getValue(n, out);
        int written = 0;
        for (const Element& e : list)
            for (int k = 0; k < W && written < n; ++k) out[written++] = k < e.count ? e.data[k] : 0.0f;
    }
    virtual void get1Value(int i, float* out) {
        Element* e = nullptr;
        get1Value(i, &e);
        copyOut(*e, out);
    }
    virtual void get1Value(int i, Element** out) {
        if (Self* r = firstReal<Self>()) return r->get1Value(i, out);
        if (i < 0 || i >= static_cast<int>(list.size())) znThrowBounds(kGet1ValueBounds, Self::kName, i);
        *out = &list[i];
    }
    virtual void get1Value(int i, S& out) {
        float v[W] = {};
        get1Value(i, v);
        out.setValue(v);
    }
    // A null pointer gives an element of zeros.
    virtual void setValue(std::vector<float*>& v) {
        forward<Self>([&](Self& r) { r.setValue(v); });
        list.clear();
        for (float* p : v) list.push_back(p ? Element(p, W) : Self::filler());
        changed();
    }
    virtual void setValue(int n, float (*v)[W]) {
        forward<Self>([&](Self& r) { r.setValue(n, v); });
        list.clear();
        for (int i = 0; i < n; ++i) list.emplace_back(v[i], W);
        changed();
    }
    // Takes the first n floats, or all of v when n is out of range, and
    // drops an incomplete last group.
    virtual void setValue(int n, std::vector<float>& v) {
        forward<Self>([&](Self& r) { r.setValue(n, v); });
        int take = (n > 0 && n <= static_cast<int>(v.size())) ? n : static_cast<int>(v.size());
        load(take, v.data(), true);
        changed();
    }
    // `n` counts floats; a count that is no multiple of W still takes a
    // whole last element, so the caller must provide it.
    virtual void setValue(int n, float* v) {
        forward<Self>([&](Self& r) { r.setValue(n, v); });
        load(n, v);
        changed();
    }
    virtual void set1Value(int i, S& v) {
        _znArray<float>* source = nullptr;
        v.getValue(&source);
        float copy[W] = {};
        std::copy(source->data, source->data + std::min(source->count, W), copy);
        storeAt(i, copy);
    }
    virtual void addValue(S& v) {
        float copy[W] = {};
        readOf(v, copy);
        appendComponents(copy);
    }
    virtual void insertValue(int i, S& v) {
        float copy[W] = {};
        readOf(v, copy);
        insertAt(i, copy);
    }

protected:
    static void copyOut(const Element& e, float* out) {
        for (int k = 0; k < W; ++k) out[k] = k < e.count ? e.data[k] : 0.0f;
    }
    static void readOf(S& v, float* out) {
        _znArray<float>* source = nullptr;
        v.getValue(&source);
        std::copy(source->data, source->data + std::min(source->count, W), out);
    }
    // Fills the list from `n` floats, W at a time. `wholeOnly` drops an
    // incomplete last group; otherwise it is read whole.
    void load(int n, const float* v, bool wholeOnly = false) {
        list.clear();
        if (n <= 0) return;
        list.reserve(static_cast<size_t>(n / W + 1));
        for (int k = 0; k < n; k += W) {
            if (wholeOnly && k + W > n) break;
            list.emplace_back(v + k, W);
        }
    }
    void storeAt(int i, const float* v) {
        forward<Self>([&](Self& r) { r.storeAt(i, v); });
        growFor(i);
        if (i < 0) znThrowBounds(kSet1ValueBoundsArray, Self::kName, i);
        list[i].resize(W);
        std::copy(v, v + W, list[i].data);
        changed();
    }
    void insertAt(int i, const float* v) {
        forward<Self>([&](Self& r) { r.insertAt(i, v); });
        growFor(i);
        if (i < 0) znThrowBounds(kInsertValueBounds, Self::kName, i);
        list.insert(list.begin() + i, Element(v, W));
        changed();
    }
    void appendComponents(const float* v) {
        forward<Self>([&](Self& r) { r.appendComponents(v); });
        list.emplace_back(v, W);
        changed();
    }
    // The separate-float forms: an index out of range does nothing at all.
    void setComponentsAt(int i, const float* v) {
        if (i < 0 || i >= static_cast<int>(list.size())) return;
        forward<Self>([&](Self& r) { r.setComponentsAt(i, v); });
        list[i].resize(W);
        std::copy(v, v + W, list[i].data);
        changed();
    }
    // Not index-tested by design; an index out of range is ignored here
    // rather than written past the end.
    void insertComponentsAt(int i, const float* v) {
        if (i < 0 || i > static_cast<int>(list.size())) return;
        forward<Self>([&](Self& r) { r.insertComponentsAt(i, v); });
        list.insert(list.begin() + i, Element(v, W));
        changed();
    }
    MFArray& assign(const Self& other) {
        std::vector<Element> copy;
        const_cast<Self&>(other).getValue(copy);
        forward<Self>([&](Self& r) { r.assign(other); });
        list = copy;
        changed();
        return *this;
    }
    void growFor(int i) {
        if (static_cast<unsigned>(i) < list.size()) return;
        for (int n = static_cast<int>(list.size()); n <= i; ++n) list.push_back(Self::filler());
    }
    void* rawValue() { return &list; }
    void loadRaw(const void* p) { list = *static_cast<const std::vector<Element>*>(p); }
    void resetToDefault() { list.clear(); }

    std::vector<Element> list;

    template <class, int, class>
    friend class MFArray;
};

#define ZN_MF_ARRAY_COMMON(Name, W, S)                                            \
public:                                                                          \
    static constexpr const char* kName = #Name;                                  \
    static _znArray<float> filler() { return _znArray<float>(W); }               \
    using MFArray::MFArray;                                                      \
    Name(const Name&) = default;                                                 \
    Name& operator=(const Name& o) { assign(o); return *this; }                  \
    using MFArray::set1Value;                                                    \
    using MFArray::addValue;                                                     \
    using MFArray::insertValue

class MFColor : public MFArray<MFColor, 3, SFColor> {
    ZN_MF_ARRAY_COMMON(MFColor, 3, SFColor);
    void set1Value(int i, float r, float g, float b) { const float v[3] = {r, g, b}; setComponentsAt(i, v); }
    void addValue(float r, float g, float b) { const float v[3] = {r, g, b}; appendComponents(v); }
    void insertValue(int i, float r, float g, float b) { const float v[3] = {r, g, b}; insertComponentsAt(i, v); }
};
class MFVec2f : public MFArray<MFVec2f, 2, SFVec2f> {
    ZN_MF_ARRAY_COMMON(MFVec2f, 2, SFVec2f);
    void set1Value(int i, float x, float y) { const float v[2] = {x, y}; setComponentsAt(i, v); }
    void addValue(float x, float y) { const float v[2] = {x, y}; appendComponents(v); }
    void insertValue(int i, float x, float y) { const float v[2] = {x, y}; insertComponentsAt(i, v); }
};
class MFVec3f : public MFArray<MFVec3f, 3, SFVec3f> {
    ZN_MF_ARRAY_COMMON(MFVec3f, 3, SFVec3f);
    void set1Value(int i, float x, float y, float z) { const float v[3] = {x, y, z}; setComponentsAt(i, v); }
    void addValue(float x, float y, float z) { const float v[3] = {x, y, z}; appendComponents(v); }
    void insertValue(int i, float x, float y, float z) { const float v[3] = {x, y, z}; insertComponentsAt(i, v); }
};
class MFRotation : public MFArray<MFRotation, 4, SFRotation> {
    ZN_MF_ARRAY_COMMON(MFRotation, 4, SFRotation);
    void set1Value(int i, float x, float y, float z, float a) { const float v[4] = {x, y, z, a}; setComponentsAt(i, v); }
    void addValue(float x, float y, float z, float a) { const float v[4] = {x, y, z, a}; appendComponents(v); }
    void insertValue(int i, float x, float y, float z, float a) { const float v[4] = {x, y, z, a}; insertComponentsAt(i, v); }
};

#undef ZN_MF_ARRAY_COMMON
#undef ZN_MF_LIST_COMMON

#endif
