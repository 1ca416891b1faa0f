#include "parse_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <sstream>

#include "parser/zn_lexer.h"

std::vector<std::string> ParseRun::values() const {
    std::vector<std::string> out;
    for (const std::string& c : calls) {
        if (c.rfind("setField(", 0) == 0) out.push_back(c.substr(9, c.size() - 10));
        if (c.rfind("setProtoField(", 0) == 0) {
            const std::size_t comma = c.find(',');
            out.push_back(c.substr(comma + 1, c.size() - comma - 2));
        }
    }
    return out;
}

bool ParseRun::called(const std::string& call) const {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

void declareTestTypes(znParserRecord& record) {
    record.declare("Node", {{"sfbool", SFBOOL},         {"sfcolor", SFCOLOR},   {"sffloat", SFFLOAT},
                            {"sfimage", SFIMAGE},       {"sfint32", SFINT32},   {"sfnode", SFNODE},
                            {"sfrotation", SFROTATION}, {"sfstring", SFSTRING}, {"sftime", SFTIME},
                            {"sfvec2f", SFVEC2F},       {"sfvec3f", SFVEC3F},   {"mfcolor", MFCOLOR},
                            {"mffloat", MFFLOAT},       {"mfint32", MFINT32},   {"mfnode", MFNODE},
                            {"mfrotation", MFROTATION}, {"mfstring", MFSTRING}, {"mftime", MFTIME},
                            {"mfvec2f", MFVEC2F},       {"mfvec3f", MFVEC3F}});
    record.declare("Group", {{"children", MFNODE}});
    record.declare("Script", {{"url", MFSTRING}});
}

ParseRun parseText(const std::string& text, const ParseOptions& options) {
    ParseRun run;
    znParser parser;
    declareTestTypes(*parser.record);
    if (options.setup) options.setup(*parser.record);
    parser.currentFilename = "test.wrl";
    std::istringstream input(text);
    parser.getLexer()->switch_streams(&input, &std::cerr);
    parser.getLexer()->set_debug(options.lexerTrace ? 1 : 0);
    yydebug = options.grammarTrace ? 1 : 0;
    testing::internal::CaptureStderr();
    run.result = yyparse(&parser);
    std::cerr.flush();
    run.errors = testing::internal::GetCapturedStderr();
    yydebug = 0;
    parser.getLexer()->flush_current_buffer();
    run.calls = parser.record->calls;
    run.lineAtEnd = parser.currentLine;
    return run;
}

ParseRun parseValue(const std::string& field, const std::string& value) {
    return parseText("Node { " + field + " " + value + " }");
}
