// Bytes read as the text of a value of each of the twenty field types, the
// way the browser reads field values (vrml2data), and written back
// (data2vrml). What is written must read back to itself, nodes aside: a
// world written out by the loader reads in again as it was.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "fields/field_messages.h"
#include "fields/zn_array.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"

namespace {

// A value of any field type, as the browser keeps it.
struct AnyValue {
    int integer = 0;
    float single = 0.0f;
    double time = 0.0;
    _znArray<float> numbers;
    std::string text;
    BaseNode node;
    std::vector<int> image;
    std::vector<_znArray<float>> vectors;
    std::vector<float> floats;
    std::vector<int> integers;
    std::vector<double> times;
    std::vector<std::string> texts;
    std::vector<BaseNode> nodes;

    void* of(FieldType type) {
        switch (type) {
            case SFBoolType:
            case SFInt32Type: return &integer;
            case SFFloatType: return &single;
            case SFTimeType: return &time;
            case SFColorType:
            case SFRotationType:
            case SFVec2fType:
            case SFVec3fType: return &numbers;
            case SFStringType: return &text;
            case SFNodeType: return &node;
            case SFImageType: return &image;
            case MFColorType:
            case MFRotationType:
            case MFVec2fType:
            case MFVec3fType: return &vectors;
            case MFFloatType: return &floats;
            case MFInt32Type: return &integers;
            case MFTimeType: return &times;
            case MFStringType: return &texts;
            case MFNodeType: return &nodes;
        }
        return nullptr;
    }
};

// A world of one named node, so that node values have a name to find.
znBrowserIntern& world() {
    static znBrowserIntern* browser = [] {
        auto* made = new znBrowserIntern(nullptr);
        std::vector<const char*> urls;
        auto* type = new znNodeType(1, "Thing", urls, made, 0, 0, nullptr);
        made->enterType(type);
        made->enterNode(new znNode(1, "d00001+N", type, made));
        return made;
    }();
    return *browser;
}

std::string writeValue(AnyValue& value, FieldType type) {
    std::vector<char> out(kFieldTextBufferSize);
    world().data2vrml(value.of(type), type, out.data());
    return out.data();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Texts reach the conversion as C strings: a null byte ends one.
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (int t = kFirstFieldType; t <= kLastFieldType; ++t) {
        const auto type = static_cast<FieldType>(t);
        AnyValue value;
        world().vrml2data(value.of(type), type, text.c_str());
        const std::string written = writeValue(value, type);
        // A text cut at the end of the buffer is no whole value; a null node
        // is written as nothing, which reads as no change rather than as a
        // null node.
        if (written.size() + 1 >= kFieldTextBufferSize || type == SFNodeType || type == MFNodeType) continue;
        AnyValue again;
        world().vrml2data(again.of(type), type, written.c_str());
        const std::string rewritten = writeValue(again, type);
        if (rewritten != written) {
            std::fprintf(stderr, "%s: \"%s\" reads back as \"%s\"\n", kFieldTypeNames[t - kFirstFieldType],
                         written.c_str(), rewritten.c_str());
            std::abort();
        }
    }
    return 0;
}
