#include "fields/all.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include "fields/zn_field_text.h"
#include "nodes/zn_node.h"

template <class V, FieldType T>
char* znFieldOf<V, T>::toString() {
    std::unique_ptr<char[]> buffer(znAllocate<char>(kFieldTextBufferSize));
    buffer[0] = '\0';
    if (znField* real = firstRemote()) real->getData(buffer.get());
    // The local copy has the last word.
    writeText(buffer.get());
    return strdup(buffer.get());
}

template <class V, FieldType T>
znFieldOf<V, T>& znFieldOf<V, T>::operator=(const znFieldOf& other) {
    if constexpr (T == SFImageType) {
        // A virtual image only passes the value on; a real one also takes
        // over the bookkeeping of the source.
        if (remoteData) {
            this->template forward<V>([&](V& r) { r = other; });
            return *this;
        }
        this->image = other.image;
        znField::operator=(other);
        valueChange();
    } else {
        V::operator=(other);
    }
    return *this;
}

template <class V, FieldType T>
znField& znFieldOf<V, T>::operator=(const znField& other) {
    if (const auto* same = dynamic_cast<const znFieldOf*>(&other)) *this = *same;
    return *this;
}

template <class V, FieldType T>
void znFieldOf<V, T>::valueChange() {
    postChange(*this);
    // An image only posts: its change is noticed by whoever reads the event.
    if constexpr (T != SFImageType) markLoaded();
}

template <class V, FieldType T>
void* znFieldOf<V, T>::getData() {
    if (znField* real = firstRemote()) return real->getData();
    return this->rawValue();
}

template <class V, FieldType T>
void znFieldOf<V, T>::setData(void* data) {
    if (remoteData)
        for (znField* real : *remoteData)
            if (real) real->setData(data);
    if (data) this->loadRaw(data);
    markLoaded();
}

template <class V, FieldType T>
void znFieldOf<V, T>::getData(char* buffer) {
    if (remoteData) {
        if (znField* real = firstRemote(); real && buffer) real->getData(buffer);
        return;
    }
    if (buffer) writeText(buffer);
}

template <class V, FieldType T>
void znFieldOf<V, T>::setData(const char* text) {
    if (remoteData)
        for (znField* real : *remoteData)
            if (real) real->setData(text);
    const bool empty = !text || !*text;
    // A node name that does not resolve must leave no node behind.
    if (empty || T == SFNodeType) this->resetToDefault();
    markLoaded();
    if (!browser) return;
    if constexpr (T == SFImageType) {
        // Width, height and components are replaced; the pixels are added to
        // those the field has, so a second load extends the image.
        std::vector<int> numbers;
        browser->vrml2data(&numbers, SFImageType, text);
        int* header[3] = {&this->image.width, &this->image.height, &this->image.components};
        size_t n = 0;
        for (; n < 3 && n < numbers.size(); ++n) *header[n] = numbers[n];
        this->image.pixels.insert(this->image.pixels.end(), numbers.begin() + n, numbers.end());
    } else {
        browser->vrml2data(this->rawValue(), fieldType, text);
    }
}

template <class V, FieldType T>
Field* znFieldOf<V, T>::toField() {
    if constexpr (T == SFImageType)
        if (znField* real = firstRemote()) return real->toField();
    return this;
}

template <class V, FieldType T>
template <class Write>
void znFieldOf<V, T>::writeValue(Write write) {
    if constexpr (T == SFImageType) {
        std::vector<int> numbers{this->image.width, this->image.height, this->image.components};
        numbers.insert(numbers.end(), this->image.pixels.begin(), this->image.pixels.end());
        write(&numbers, SFImageType);
    } else {
        write(this->rawValue(), fieldType);
    }
}

template <class V, FieldType T>
void znFieldOf<V, T>::writeText(char* buffer) {
    if (!browser) return;
    writeValue([&](void* data, FieldType type) { browser->data2vrml(data, type, buffer); });
}

template <class V, FieldType T>
void znFieldOf<V, T>::getText(std::string& out) {
    if (remoteData) {
        if (znField* real = firstRemote()) real->getText(out);
        return;
    }
    // Node names come from the browser, which knows them all.
    auto* names = dynamic_cast<znNodeNames*>(browser);
    if (names == nullptr) return;
    writeValue([&](void* data, FieldType type) { znWriteFieldText(data, type, out, *names); });
}

template class znFieldOf<SFBool, SFBoolType>;
template class znFieldOf<SFColor, SFColorType>;
template class znFieldOf<SFFloat, SFFloatType>;
template class znFieldOf<SFImage, SFImageType>;
template class znFieldOf<SFInt32, SFInt32Type>;
template class znFieldOf<SFNode, SFNodeType>;
template class znFieldOf<SFRotation, SFRotationType>;
template class znFieldOf<SFString, SFStringType>;
template class znFieldOf<SFTime, SFTimeType>;
template class znFieldOf<SFVec2f, SFVec2fType>;
template class znFieldOf<SFVec3f, SFVec3fType>;
template class znFieldOf<MFColor, MFColorType>;
template class znFieldOf<MFFloat, MFFloatType>;
template class znFieldOf<MFInt32, MFInt32Type>;
template class znFieldOf<MFNode, MFNodeType>;
template class znFieldOf<MFRotation, MFRotationType>;
template class znFieldOf<MFString, MFStringType>;
template class znFieldOf<MFTime, MFTimeType>;
template class znFieldOf<MFVec2f, MFVec2fType>;
template class znFieldOf<MFVec3f, MFVec3fType>;
