#include "vrmlnodes/VRMLNodebase.h"

#include <cstring>

#include "browser/zn_browser.h"
#include "base/zn_reports.h"

namespace {
// A stored node name is kind, five digits and '+' before the VRML name; the
// kinds 'd' and 'u' mark a DEF name and its uses, while 'x' names an
// anonymous node after its type, which is no name to show.
constexpr size_t kVrmlNameOffset = 7;
}  // namespace

const char* VRMLNode::sceneName(const char* unnamed) {
    const char* name = getDefName();
    return name != nullptr ? name : unnamed;
}

void VRMLNode::shutdown() { delete this; }

const char* VRMLNode::getDefName() {
    const char* stored = getName(nullptr);
    if (!stored || std::strlen(stored) <= kVrmlNameOffset) return nullptr;
    if (stored[0] != 'd' && stored[0] != 'u') return nullptr;
    return stored + kVrmlNameOffset;
}

std::string VRMLNode::textOf(SFString* field) { return field ? std::string(field->getValue().c_str()) : std::string(); }

std::vector<std::string> VRMLNode::textsOf(MFString* field) {
    std::vector<std::string> texts;
    if (field) field->getValue(texts);
    for (std::string& text : texts) text.resize(std::strlen(text.c_str()));
    return texts;
}
