// Runs the grammar over a text with the recording parser and keeps what
// came out: the result of yyparse, the calls in order, and the error stream.
#ifndef PARSE_RUN_H
#define PARSE_RUN_H

#include <functional>
#include <string>
#include <vector>

#include "parser/parser.hpp"
#include "parser/zn_parser.h"
#include "parser/zn_parser_record.h"

struct ParseRun {
    int result = -1;
    std::vector<std::string> calls;
    std::string errors;
    int lineAtEnd = 0;

    // The value texts given to setField and setProtoField, in order.
    std::vector<std::string> values() const;
    bool called(const std::string& call) const;
};

struct ParseOptions {
    bool grammarTrace = false;
    bool lexerTrace = false;
    std::function<void(znParserRecord&)> setup;
};

// A scene with one node type "Node" that has a field of every type, named
// after the type ("sfbool", "mffloat", ..., "mfnode"), and "Group" with
// "children" (MFNode).
void declareTestTypes(znParserRecord& record);

ParseRun parseText(const std::string& text, const ParseOptions& options = {});

// "Node { <field> <value> }" with `field` named after its type.
ParseRun parseValue(const std::string& field, const std::string& value);

#endif
