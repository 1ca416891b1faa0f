#include "parse_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <iostream>
#include <memory>
#include <sstream>

#include "parser/zn_lexer.h"
#include "test_support.h"
#include "url/zn_URL_default.h"

namespace {

std::string text(const char* t) { return t != nullptr ? t : "(null)"; }

std::string list(char** items) {
    std::string out = "[";
    for (int i = 0; items != nullptr && items[i] != nullptr; ++i) out += (i > 0 ? "/" : "") + std::string(items[i]);
    return out + "]";
}

std::string list(const std::vector<char*>* items) {
    std::string out = "[";
    if (items != nullptr) {
        for (std::size_t i = 0; i < items->size(); ++i) out += (i > 0 ? "/" : "") + std::string((*items)[i]);
    }
    return out + "]";
}

std::string flagText(FieldFlags flags) {
    std::string out;
    if (flags.exposed()) out += 'e';
    if (flags.valueSet()) out += 'v';
    return out.empty() ? "-" : out;
}

std::string join(std::initializer_list<std::string> parts) {
    std::string out;
    for (const std::string& p : parts) out += (out.empty() ? "" : ",") + p;
    return out;
}


}  // namespace

const char* const kTestTypes =
    "PROTO Node [ exposedField SFBool sfbool FALSE exposedField SFColor sfcolor 0 0 0"
    " exposedField SFFloat sffloat 0 exposedField SFImage sfimage 0 0 0 exposedField SFInt32 sfint32 0"
    " exposedField SFNode sfnode NULL exposedField SFRotation sfrotation 0 0 1 0"
    " exposedField SFString sfstring \"\" exposedField SFTime sftime 0 exposedField SFVec2f sfvec2f 0 0"
    " exposedField SFVec3f sfvec3f 0 0 0 exposedField MFColor mfcolor [ ] exposedField MFFloat mffloat [ ]"
    " exposedField MFInt32 mfint32 [ ] exposedField MFNode mfnode [ ] exposedField MFRotation mfrotation [ ]"
    " exposedField MFString mfstring [ ] exposedField MFTime mftime [ ] exposedField MFVec2f mfvec2f [ ]"
    " exposedField MFVec3f mfvec3f [ ] ] { }\n"
    "PROTO Group [ exposedField MFNode children [ ] ] { }\n"
    "PROTO Script [ exposedField MFString url [ ] ] { }\n";

int RecordingDatabase::CreatePrototype(char* name, char** parents, char* url, int, int sensor, char*, char* init) {
    calls.push_back("CreatePrototype(" + join({text(name), list(parents), text(url), std::to_string(sensor), text(init)}) +
                    ")");
    inScriptType = name != nullptr && std::strncmp(name, "Script_", 7) == 0;
    return 1;
}

int RecordingDatabase::SetPrototypeData(char*, char* name, char* value, int fieldType, int dataType,
                                        FieldFlags flags) {
    calls.push_back("SetPrototypeData(" + join({text(name), text(value), std::to_string(fieldType),
                                                std::to_string(dataType), flagText(flags)}) +
                    ")");
    if (value != nullptr && !inScriptType) values.push_back(value);
    return 1;
}

int RecordingDatabase::EndPrototype() {
    calls.push_back("EndPrototype()");
    return 1;
}

int RecordingDatabase::CreateNode(char* type, char* instName, char** parents, int grouping, int nesting,
                                  int sensor) {
    calls.push_back("CreateNode(" + join({text(type), text(instName), list(parents), std::to_string(grouping),
                                          std::to_string(nesting), std::to_string(sensor)}) +
                    ")");
    return 1;
}

int RecordingDatabase::SetNodeData(char*, char* name, char* value, int fieldType, int dataType, FieldFlags flags,
                                   std::vector<char*>* isFields) {
    calls.push_back("SetNodeData(" + join({text(name), text(value), std::to_string(fieldType),
                                           std::to_string(dataType), flagText(flags), list(isFields)}) +
                    ")");
    if (value != nullptr && flags.valueSet()) values.push_back(value);
    return 1;
}

void RecordingDatabase::EndNode() { calls.push_back("EndNode()"); }

int RecordingDatabase::InsertRouteByName(char* fromType, char* fromNode, char* fromField, char* toType,
                                         char* toNode, char* toField, char** parents) {
    calls.push_back("InsertRouteByName(" + join({text(fromType), text(fromNode), text(fromField), text(toType),
                                                 text(toNode), text(toField), list(parents)}) +
                    ")");
    return 1;
}

void RecordingDatabase::createToplevelUSE(const char* name) { calls.push_back("createToplevelUSE(" + text(name) + ")"); }

bool ParseRun::called(const std::string& call) const {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

std::vector<std::string> ParseRun::nodes() const {
    std::vector<std::string> out;
    for (const std::string& c : calls) {
        if (c.rfind("CreateNode(", 0) != 0) continue;
        const std::size_t first = c.find(',');
        out.push_back(c.substr(first + 1, c.find(',', first + 1) - first - 1));
    }
    return out;
}

ParseRun parseText(const std::string& source, const ParseOptions& options) {
    ParseRun run;
    wrltest::TempDir dir;
    const std::string types = dir.write("types.wrl", kTestTypes);
    for (const auto& file : options.files) dir.write(file.first, file.second);
    wrltest::ScopedDirectory here(dir.path());
    wrltest::ScopedEnv builtins("ZNBUILTINS", types.c_str());
    // Answers are typed at a terminal, the only input the parser asks;
    // without answers, its input is no terminal and nothing is asked.
    std::unique_ptr<wrltest::ScopedTerminalInput> terminal;
    std::unique_ptr<wrltest::ScopedStdin> none;
    if (options.input.empty())
        none = std::make_unique<wrltest::ScopedStdin>("");
    else
        terminal = std::make_unique<wrltest::ScopedTerminalInput>(options.input);
    RecordingDatabase db;
    zn_URL_default url;
    znParser parser(&db);
    if (parser.InitParser(znParser::kOutput, &url) != 1) ADD_FAILURE() << "the test types were not read";
    db.calls.clear();
    db.values.clear();
    parser.getLexer()->set_debug(options.lexerTrace ? 1 : 0);
    yydebug = options.grammarTrace ? 1 : 0;
    std::istringstream input(source);
    testing::internal::CaptureStderr();
    run.result = parser.parseInput(input, "test.wrl");
    run.lineAtEnd = parser.currentLine();
    std::cerr.flush();
    run.errors = testing::internal::GetCapturedStderr();
    yydebug = 0;
    run.calls = db.calls;
    run.valueTexts = db.values;
    return run;
}

ParseRun parseValue(const std::string& field, const std::string& value) {
    return parseText("Node { " + field + " " + value + " }");
}
