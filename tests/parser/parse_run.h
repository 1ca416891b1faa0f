// Runs the parser over a text with a database that writes down every call
// it receives, and keeps what came out: the result of the parse, the calls
// in order, and the error stream.
#ifndef PARSE_RUN_H
#define PARSE_RUN_H

#include <map>
#include <string>
#include <vector>

#include "database/zn_database.h"
#include "parser/parser.hpp"
#include "parser/zn_parser.h"

// Each call as "Method(arg,arg,...)": null texts as "(null)", parent and
// IS lists as "[a/b]", flags as "-", "e" (exposed), "v" (value set in a
// node) or "ev".
class RecordingDatabase : public znDatabaseStandIn {
public:
    int CreatePrototype(char* name, char** parents, char* url, int flagA, int sensor, char* text,
                        char* init) override;
    int SetPrototypeData(char* ignored, char* name, char* value, int fieldType, int dataType,
                         FieldFlags flags) override;
    int EndPrototype() override;
    int CreateNode(char* type, char* instName, char** parents, int grouping, int nesting, int sensor) override;
    int SetNodeData(char* ignored, char* name, char* value, int fieldType, int dataType, FieldFlags flags,
                    std::vector<char*>* isFields) override;
    void EndNode() override;
    int InsertRouteByName(char* fromType, char* fromNode, char* fromField, char* toType, char* toNode,
                          char* toField, char** parents) override;
    void createToplevelUSE(const char* name) override;

    std::vector<std::string> calls;
    // Values a node was given and defaults of PROTOs, in arrival order.
    std::vector<std::string> values;
    bool inScriptType = false;
};

struct ParseRun {
    int result = -1;
    std::vector<std::string> calls;
    std::vector<std::string> valueTexts;
    std::string errors;
    int lineAtEnd = 0;

    // Value texts written in the file: node values and PROTO defaults, but
    // not the copies that a Script's own type and a node's defaults repeat.
    std::vector<std::string> values() const { return valueTexts; }
    bool called(const std::string& call) const;
    // The instance names of the nodes, in arrival order.
    std::vector<std::string> nodes() const;
};

struct ParseOptions {
    bool grammarTrace = false;
    bool lexerTrace = false;
    // Files beside the text, by name: EXTERNPROTO reads them.
    std::map<std::string, std::string> files;
    // Answers typed at the parser's questions.
    std::string input;
};

// Types every parse knows: "Node", with one exposedField of every type named
// after the type ("sfbool", "mffloat", ..., "mfnode"), "Group" with
// "children" (MFNode), and "Script" with "url".
extern const char* const kTestTypes;

ParseRun parseText(const std::string& text, const ParseOptions& options = {});

// "Node { <field> <value> }" with `field` named after its type.
ParseRun parseValue(const std::string& field, const std::string& value);

#endif
