#include "fields/zn_values.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "fields/zn_field.h"

Field* Field::valueSide(znField* f) { return f != nullptr ? f->ownValue() : nullptr; }

std::string znTerminated(std::string text) {
    if (text.empty() || text.back() != '\0') text.push_back('\0');
    return text;
}

void znThrowBounds(const char* format, const char* className, int n) {
    znThrow<ArrayIndexOutOfBoundsException>(format, className, n);
}

// --- SFString --------------------------------------------------------------

void SFString::getValue(std::string** out) {
    if (SFString* r = firstReal<SFString>()) return r->getValue(out);
    *out = &value;
}

std::string SFString::getValue() {
    if (SFString* r = firstReal<SFString>()) return r->getValue();
    return value;
}

void SFString::setValue(std::string& text) {
    forward<SFString>([&](SFString& r) { r.setValue(text); });
    value = znTerminated(text);
    changed();
}

void SFString::setValue(SFString& other) {
    std::string copy = other.getValue();
    setValue(copy);
}

void SFString::getValue(char** out) {
    if (SFString* r = firstReal<SFString>()) return r->getValue(out);
    *out = &value[0];
}

void SFString::setValue(char* text) {
    forward<SFString>([&](SFString& r) { r.setValue(text); });
    if (text)
        value.assign(text, std::strlen(text) + 1);
    else
        value.assign(1, '\0');
    changed();
}

// --- SFNode ----------------------------------------------------------------

void SFNode::getValue(BaseNode** out) {
    if (SFNode* r = firstReal<SFNode>()) return r->getValue(out);
    *out = &value;
}

BaseNode SFNode::getValue() {
    if (SFNode* r = firstReal<SFNode>()) return r->getValue();
    return value;
}

void SFNode::setValue(BaseNode& node) {
    forward<SFNode>([&](SFNode& r) { r.setValue(node); });
    value = node;
    changed();
}

void SFNode::setValue(SFNode& other) {
    BaseNode copy = other.getValue();
    setValue(copy);
}

// --- SFImage ---------------------------------------------------------------

SFImage::SFImage(int width, int height, int components, std::vector<int>& pixels) {
    image.width = width;
    image.height = height;
    image.components = components;
    image.pixels = pixels;
}

const SFImage::imageInfo& SFImage::current() const {
    if (SFImage* r = firstReal<SFImage>()) return r->current();
    return image;
}

int SFImage::getWidth() { return current().width; }
int SFImage::getHeight() { return current().height; }
int SFImage::getComponents() { return current().components; }
void SFImage::getPixels(std::vector<int>& out) { out = current().pixels; }

void SFImage::setValue(int width, int height, int components, std::vector<int>& pixels) {
    if (forward<SFImage>([&](SFImage& r) { r.setValue(width, height, components, pixels); })) return;
    image.width = width;
    image.height = height;
    image.components = components;
    image.pixels = pixels;
    changed();
}

void SFImage::setValue(SFImage& other) {
    const imageInfo& source = other.current();
    std::vector<int> pixels = source.pixels;
    setValue(source.width, source.height, source.components, pixels);
}

void SFImage::loadRaw(const void* p) {
    const imageInfo& source = *static_cast<const imageInfo*>(p);
    image.width = source.width;
    image.height = source.height;
    image.components = source.components;
    image.pixels = source.pixels;
}

// --- MFString extras -------------------------------------------------------

void MFString::getValue(char** out) { getValue(getSize(), out); }

void MFString::getValue(int n, char** out) {
    if (MFString* r = firstReal<MFString>()) return r->getValue(n, out);
    for (int i = 0; i < n && i < static_cast<int>(list.size()); ++i) out[i] = &list[i][0];
}

void MFString::get1Value(int i, char** out) {
    if (MFString* r = firstReal<MFString>()) return r->get1Value(i, out);
    *out = &list[i][0];
}

void MFString::setValue(int n, char** texts) {
    forward<MFString>([&](MFString& r) { r.setValue(n, texts); });
    list.clear();
    for (int i = 0; i < n; ++i) list.emplace_back(texts[i], std::strlen(texts[i]) + 1);
    changed();
}

void MFString::set1Value(int i, char* text) {
    forward<MFString>([&](MFString& r) { r.set1Value(i, text); });
    if (i < 0 || i >= static_cast<int>(list.size())) znThrowBounds(kSet1ValueBoundsList, kName, i);
    list[i].assign(text, std::strlen(text) + 1);
    changed();
}

void MFString::addValue(char* text) {
    forward<MFString>([&](MFString& r) { r.addValue(text); });
    list.emplace_back(text, std::strlen(text) + 1);
    changed();
}

void MFString::insertValue(int i, char* text) {
    forward<MFString>([&](MFString& r) { r.insertValue(i, text); });
    if (i < 0 || i >= static_cast<int>(list.size())) znThrowBounds(kInsertValueBounds, kName, i);
    list.insert(list.begin() + i, std::string(text, std::strlen(text) + 1));
    changed();
}
