#include "parser/parser_trace.h"

#include <cstdarg>
#include <cstring>
#include <string>
#include <vector>

#include "parser/parser_messages.h"

namespace {

// One rule of the grammar as the trace shows it: its fixed listing line,
// its left side and its right side. The empty markers are named "@n".
struct RuleTrace {
    int line;
    const char* left;
    std::vector<const char*> right;
};

const std::vector<RuleTrace>& ruleTable() {
    static const std::vector<RuleTrace> rules = {
        {0, "", {}},  // rule 0 is the generator's own start rule
        {143, "vrmlscene", {"declarations"}},
        {147, "declarations", {}},
        {149, "declarations", {"declarations", "declaration"}},
        {154, "declaration", {"nodeDeclaration"}},
        {156, "declaration", {"protoDeclaration"}},
        {157, "declaration", {"routeDeclaration"}},
        {162, "@1", {}},
        {171, "nodeDeclaration", {"IDENTIFIER", "@1", "nodeg"}},
        {182, "@2", {}},
        {189, "nodeDeclaration", {"DEF", "IDENTIFIER", "IDENTIFIER", "@2", "nodeg"}},
        {196, "nodeDeclaration", {"USE", "IDENTIFIER"}},
        {209, "protoDeclaration", {"proto"}},
        {211, "protoDeclaration", {"externproto"}},
        {216, "@3", {}},
        {221, "@4", {}},
        {225, "proto", {"PROTO", "IDENTIFIER", "@3", "'['", "interfaceDeclarations", "']'", "@4", "'{'", "declarations", "'}'"}},
        {234, "@5", {}},
        {241, "@6", {}},
        {245, "externproto", {"EXTERNPROTO", "IDENTIFIER", "'['", "externInterfaceDeclarations", "']'", "@5", "fieldValue", "@6", "declarations", "EXTPROTOCREATED"}},
        {255, "interfaceDeclarations", {}},
        {257, "interfaceDeclarations", {"interfaceDeclarations", "interfaceDeclaration"}},
        {262, "interfaceDeclaration", {"EVENTIN", "IDENTIFIER", "IDENTIFIER"}},
        {270, "interfaceDeclaration", {"EVENTOUT", "IDENTIFIER", "IDENTIFIER"}},
        {277, "@7", {}},
        {284, "interfaceDeclaration", {"FIELD", "IDENTIFIER", "IDENTIFIER", "@7", "fieldValue"}},
        {290, "@8", {}},
        {297, "interfaceDeclaration", {"EXPOSEDFIELD", "IDENTIFIER", "IDENTIFIER", "@8", "fieldValue"}},
        {306, "externInterfaceDeclarations", {}},
        {308, "externInterfaceDeclarations", {"externInterfaceDeclarations", "externInterfaceDeclaration"}},
        {312, "externInterfaceDeclaration", {"EVENTIN", "IDENTIFIER", "IDENTIFIER"}},
        {314, "externInterfaceDeclaration", {"EVENTOUT", "IDENTIFIER", "IDENTIFIER"}},
        {315, "externInterfaceDeclaration", {"FIELD", "IDENTIFIER", "IDENTIFIER"}},
        {316, "externInterfaceDeclaration", {"EXPOSEDFIELD", "IDENTIFIER", "IDENTIFIER"}},
        {321, "routeDeclaration", {"ROUTE", "IDENTIFIER", "'.'", "IDENTIFIER", "TO", "IDENTIFIER", "'.'", "IDENTIFIER"}},
        {343, "nodeg", {"'{'", "nodeGuts", "'}'"}},
        {351, "nodeGuts", {}},
        {353, "nodeGuts", {"nodeGuts", "nodeGut"}},
        {354, "nodeGuts", {"garbage"}},
        {360, "garbage", {"GARBAGE", "garb"}},
        {367, "garb", {}},
        {369, "garb", {"garb", "GARBAGE"}},
        {370, "garb", {"garb", "'{'", "garb", "'}'"}},
        {376, "@9", {}},
        {383, "nodeGut", {"IDENTIFIER", "@9", "fieldValue"}},
        {393, "nodeGut", {"routeDeclaration"}},
        {394, "nodeGut", {"protoDeclaration"}},
        {401, "nodeGut", {"EVENTIN", "IDENTIFIER", "IDENTIFIER"}},
        {409, "nodeGut", {"EVENTOUT", "IDENTIFIER", "IDENTIFIER"}},
        {417, "@10", {}},
        {426, "nodeGut", {"FIELD", "IDENTIFIER", "IDENTIFIER", "@10", "fieldValue"}},
        {432, "nodeGut", {"EVENTIN", "IDENTIFIER", "IDENTIFIER", "IS", "IDENTIFIER"}},
        {443, "nodeGut", {"EVENTOUT", "IDENTIFIER", "IDENTIFIER", "IS", "IDENTIFIER"}},
        {457, "fieldValue", {"SFBOOL"}},
        {459, "fieldValue", {"SFCOLOR"}},
        {460, "fieldValue", {"MFCOLOR"}},
        {461, "fieldValue", {"SFFLOAT"}},
        {462, "fieldValue", {"MFFLOAT"}},
        {463, "fieldValue", {"SFIMAGE"}},
        {464, "fieldValue", {"SFINT32"}},
        {465, "fieldValue", {"MFINT32"}},
        {466, "fieldValue", {"SFROTATION"}},
        {467, "fieldValue", {"MFROTATION"}},
        {468, "fieldValue", {"SFSTRING"}},
        {469, "fieldValue", {"MFSTRING"}},
        {470, "fieldValue", {"SFTIME"}},
        {471, "fieldValue", {"MFTIME"}},
        {472, "fieldValue", {"SFVEC2F"}},
        {473, "fieldValue", {"MFVEC2F"}},
        {474, "fieldValue", {"SFVEC3F"}},
        {475, "fieldValue", {"MFVEC3F"}},
        {476, "@11", {}},
        {483, "fieldValue", {"SFNODE", "@11", "nodeDeclaration"}},
        {489, "fieldValue", {"SFNODE", "SFN_NULL"}},
        {490, "fieldValue", {"MFNODE", "SFN_NULL"}},
        {491, "@12", {}},
        {503, "fieldValue", {"MFNODE", "@12", "mfnodeValue"}},
        {513, "fieldValue", {"IS", "IDENTIFIER"}},
        {520, "fieldValue", {"SFNODE", "IS", "IDENTIFIER"}},
        {527, "fieldValue", {"MFNODE", "IS", "IDENTIFIER"}},
        {537, "@13", {}},
        {545, "mfnodeValue", {"@13", "'['", "nodes", "']'"}},
        {555, "mfnodeValue", {"nodeDeclaration"}},
        {563, "nodes", {}},
        {565, "nodes", {"nodes", "nodeDeclaration"}},
        {571, "nodes", {"nodes", "SFN_NULL"}},
        {575, "nodes", {"nodes", "protoDeclaration"}},
        // The rules that real files need beyond the first grammar.
        {580, "@14", {}},
        {585, "nodeGut", {"EXPOSEDFIELD", "IDENTIFIER", "IDENTIFIER", "@14", "fieldValue"}},
        {590, "fieldValue", {"SKIPPEDVALUE"}},
    };
    return rules;
}

// The generator's names of the three first symbols, and ours.
const char* traceName(const char* name) {
    if (std::strcmp(name, "\"end of file\"") == 0) return "$";
    if (std::strcmp(name, "\"invalid token\"") == 0) return "$undefined.";
    return name;
}

// What the generator's trace calls belong to; its lines come in another
// order and grouping than ours, so some are held back or dropped.
enum class Context { Plain, SymbolTitle, ReduceArguments, Cleanup };

// Process-wide like yydebug, which switches it.
struct TraceState {
    Context context = Context::Plain;
    std::string title;        // title of the symbol being printed
    std::string symbol;       // its name
    bool collectingStack = false;
    std::vector<int> stack;
    bool haveEnteredState = false;
    int enteredState = 0;
    bool afterReduce = false;
    bool errorPop = false;
    bool accepting = false;
    int lastToken = 0;
} trace;

void printStackLine(std::FILE* out, const char* head, std::size_t count) {
    std::fputs(head, out);
    for (std::size_t i = 0; i < count && i < trace.stack.size(); ++i) std::fprintf(out, kTraceStackEntry, trace.stack[i]);
    std::fputc('\n', out);
}

void finishStack(std::FILE* out) {
    trace.collectingStack = false;
    if (trace.context == Context::Cleanup || trace.accepting) {
        trace.haveEnteredState = false;
        return;
    }
    if (trace.errorPop) {
        printStackLine(out, kTraceErrorStack, trace.stack.size());
        trace.errorPop = false;
        return;
    }
    if (trace.afterReduce) {
        // Our trace shows the stack after the right side is popped, before
        // the state that the left side leads to.
        printStackLine(out, kTraceStack, trace.stack.empty() ? 0 : trace.stack.size() - 1);
        trace.afterReduce = false;
    }
    if (trace.haveEnteredState) std::fprintf(out, kTraceEnterState, trace.enteredState);
    trace.haveEnteredState = false;
}

void finishSymbol(std::FILE* out) {
    const std::string& title = trace.title;
    const char* name = traceName(trace.symbol.c_str());
    if (title == "Next token is") {
        std::fprintf(out, kTraceNextToken, trace.lastToken, name);
        std::fputs(kTraceNextTokenEnd, out);
    } else if (title == "Shifting") {
        if (trace.symbol == "error") {
            std::fputs(kTraceShiftError, out);
        } else if (trace.lastToken == 0) {
            // End of input is accepted, not shifted.
            trace.accepting = true;
        } else {
            std::fprintf(out, kTraceShift, trace.lastToken, name);
        }
    } else if (title == "-> $$ =") {
        trace.afterReduce = true;
    } else if (title == "Error: discarding") {
        std::fprintf(out, kTraceDiscard, trace.lastToken, name);
    } else if (title == "Error: popping") {
        trace.errorPop = true;
    }
    trace.context = title.compare(0, 8, "Cleanup:") == 0 ? Context::Cleanup : Context::Plain;
}

}  // namespace

void znGrammarTraceToken(int token) { trace.lastToken = token; }

const char* znGrammarWording(const char* text) {
    if (std::strcmp(text, "syntax error") == 0) return kParseError;
    if (std::strcmp(text, "memory exhausted") == 0) {
        trace.context = Context::Cleanup;
        return kStackOverflow;
    }
    return text;
}

int znGrammarTrace(std::FILE* out, const char* format, ...) {
    va_list args;
    va_start(args, format);
    if (std::strcmp(format, "Starting parse\n") == 0) {
        trace = TraceState();
        std::fputs(kTraceStart, out);
    } else if (std::strcmp(format, "Entering state %d\n") == 0) {
        trace.haveEnteredState = true;
        trace.enteredState = va_arg(args, int);
    } else if (std::strcmp(format, "Stack now") == 0) {
        trace.collectingStack = true;
        trace.stack.clear();
    } else if (std::strcmp(format, " %d") == 0 && trace.collectingStack) {
        trace.stack.push_back(va_arg(args, int));
    } else if (std::strcmp(format, "Stack size increased to %ld\n") == 0) {
        std::fprintf(out, kTraceStackGrown, static_cast<int>(va_arg(args, long)));
    } else if (std::strcmp(format, "Reading a token\n") == 0) {
        std::fputs(kTraceReading, out);
    } else if (std::strcmp(format, "Now at end of input.\n") == 0) {
        std::fputs(kTraceEndOfInput, out);
    } else if (std::strcmp(format, "Reducing stack by rule %d (line %d):\n") == 0) {
        const int rule = va_arg(args, int);
        const auto& rules = ruleTable();
        if (rule > 0 && static_cast<std::size_t>(rule) < rules.size()) {
            const RuleTrace& r = rules[static_cast<std::size_t>(rule)];
            std::fprintf(out, kTraceReduce, rule, r.line);
            for (const char* symbol : r.right) std::fprintf(out, kTraceReduceSymbol, symbol);
            std::fprintf(out, kTraceReduceResult, r.left);
        }
        trace.context = Context::ReduceArguments;
    } else if (std::strcmp(format, "%s ") == 0) {
        // The title of a symbol print ends the arguments of a reduction.
        if (trace.context != Context::Cleanup) trace.context = Context::SymbolTitle;
        trace.title = va_arg(args, const char*);
        trace.symbol.clear();
    } else if (std::strcmp(format, "%s %s (") == 0) {
        va_arg(args, const char*);
        trace.symbol = va_arg(args, const char*);
    } else if (std::strcmp(format, "\n") == 0) {
        if (trace.collectingStack) {
            finishStack(out);
        } else if (trace.context == Context::SymbolTitle) {
            finishSymbol(out);
        } else if (trace.context == Context::Cleanup && trace.title.compare(0, 8, "Cleanup:") != 0) {
            trace.title.clear();
        }
    }
    // Anything else ("   $%d = ", ")", the kind words) has no counterpart.
    va_end(args);
    return 0;
}
