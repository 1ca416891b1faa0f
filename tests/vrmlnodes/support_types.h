// The PROTO declarations of the Node Support file, read just far enough to
// make node types with the same fields and implementation URLs.
#ifndef WRL_SUPPORT_TYPES_H
#define WRL_SUPPORT_TYPES_H

#include <sstream>
#include <string>
#include <vector>

#include "behaviour_world.h"
#include "test_support.h"

namespace wrltest {

struct SupportType {
    std::string name;
    std::vector<FieldDecl> fields;
    std::string url;                      // the ZNurl text without quotes
    std::string init;                     // the ZNinit text with its quotes
};

inline FieldType fieldTypeNamed(const std::string& word) {
    static const char* const names[] = {"SFBool", "SFColor", "SFFloat", "SFImage", "SFInt32",
                                        "SFNode", "SFRotation", "SFString", "SFTime", "SFVec2f",
                                        "SFVec3f", "MFColor", "MFFloat", "MFInt32", "MFNode",
                                        "MFRotation", "MFString", "MFTime", "MFVec2f", "MFVec3f"};
    for (int i = 0; i < 20; ++i)
        if (word == names[i]) return static_cast<FieldType>(SFBoolType + i);
    return static_cast<FieldType>(0);
}

inline std::vector<SupportType> readSupportTypes() {
    std::vector<SupportType> types;
    std::istringstream in(readFile(nodeSupportFile()));
    std::string line;
    while (std::getline(in, line)) {
        std::istringstream words(line);
        std::string kind, type, name;
        words >> kind;
        if (kind == "PROTO") {
            words >> name;
            types.push_back(SupportType{name, {}, "", ""});
            continue;
        }
        if (types.empty() || (kind != "field" && kind != "exposedField" && kind != "eventIn" && kind != "eventOut"))
            continue;
        words >> type >> name;
        SupportType& t = types.back();
        std::string rest;
        std::getline(words, rest);
        size_t open = rest.find('"'), close = rest.rfind('"');
        if (name == "ZNurl" && open != std::string::npos) {
            t.url = rest.substr(open + 1, close - open - 1);
            continue;
        }
        if (name == "ZNinit" && open != std::string::npos) {
            t.init = rest.substr(open, close - open + 1);
            continue;
        }
        if (name.rfind("ZN", 0) == 0) continue;
        DataType data = kind == "eventIn" ? eventIn : kind == "eventOut" ? eventOut : field;
        t.fields.push_back(FieldDecl{name, fieldTypeNamed(type), data, kind == "exposedField"});
    }
    return types;
}

}  // namespace wrltest

#endif
