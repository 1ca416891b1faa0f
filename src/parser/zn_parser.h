// znParser as the grammar and the lexer see it: the cells that the grammar's
// actions and the lexer read and write, and the semantic methods that the
// actions call. The bodies of the semantic methods live apart from the
// permanent part (zn_parser.cpp), so that they can be exchanged without
// touching the grammar or the lexer.
#ifndef ZN_PARSER_H
#define ZN_PARSER_H

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

class zn_Lexer;
struct znParserRecord;

// The grammar's entry point (generated); `parser` is the znParser of the run.
// Answers 0 at the end of a correct file, 1 on a syntax error, 2 when the
// parser stack would exceed its limit.
int yyparse(void* parser);
// The grammar's trace switch, process-wide like the generated parser's own.
extern int yydebug;

// One open EXTERNPROTO read, indexed by its depth (1..kMaxExternDepth).
struct extProtoInfo {
    char* name = nullptr;           // owning: the name the PROTO gets here
    char* fragment = nullptr;       // owning, may be null: text after '#'
    char* savedFilename = nullptr;  // owning: currentFilename of the outer input
    int savedLine = 0;
    int wanted = 0;   // the next PROTO read is the one sought
    int created = 0;  // the PROTO sought has been finished
    std::vector<const char*> urls;  // owning (malloc'd copies)
    int urlIndex = 0;
};

class znParser {
public:
    static constexpr int kMaxProtoDepth = 40;     // one field-nesting count per level
    static constexpr int kMaxExternDepth = 10;
    static constexpr int kDefCounterDepth = 500;

    znParser();
    ~znParser();
    znParser(const znParser&) = delete;
    znParser& operator=(const znParser&) = delete;

    // --- permanent part (zn_parser.cpp) ---

    // Forwards to the lexer; all that yyparse knows of it.
    int call_yylex(void* lvalue);
    // Reports an error of the parse at the current line and clears
    // expectToken; it stops nothing by itself.
    void yyerror(const char* message);
    // The type token (271..290) the lexer reads the next value as; 0 for none.
    void expect(int token);
    // Token number of a VRML field type name, 0 (with an alert) if none.
    int fieldType(const char* type);
    // "%c%05d+%s" of kind, number and name, in a buffer of this parser that
    // the next call overwrites.
    const char* makeDefName(const char* name, int number, char kind);
    // The number of a new DEF of `name`: 0 the first time, then one more.
    int setDefName(const char* name);
    // The DEF-form name ('u' kind) of the latest DEF of `name`, or `name`.
    const char* getDefName(const char* name);
    // The field-nesting count of the current PROTO level. Depths beyond the
    // table share its last count rather than run past it.
    int& fieldNestingCount();
    zn_Lexer* getLexer() { return lexer; }

    // --- semantic methods called by the grammar (zn_parser_record.cpp) ---

    void enterNode(const char* type);
    void exitNode();
    void setName(const char* name);
    void getName();
    void enterField(const char* name);
    void exitField();
    void setField(const char* value);  // takes ownership of `value`
    void setFieldIS(const char* protoField);
    void setProtoField(const char* name, const char* value);  // takes `value`
    void addEventIn(const char* type, const char* name);
    void addEventOut(const char* type, const char* name);
    int addField(const char* type, const char* name);         // the type token
    int addExposedField(const char* type, const char* name);  // the type token
    void beginProto(const char* name);
    void inProto(const char* name);
    void endProto();
    void beginExternProto(const char* name, const char* urlList);
    void endExternProto();
    void inScript();
    void setRoute(const char* fromNode, const char* fromField, const char* toNode,
                  const char* toField);
    void createToplevelUSE(const char* name);

    // Inputs of EXTERNPROTO reads, opened and closed for the lexer. `save`
    // keeps the file's directory for relative names inside it.
    std::istream* openExternInput(const char* url, int save);
    void closeExternInput(std::istream* input, int save);

    // --- cells of the parse, read and written by the grammar and the lexer ---

    int fieldNesting[kMaxProtoDepth] = {};
    int expectToken = 0;
    int currentLine = 1;
    std::string currentFilename;
    int skippingNode = 0;
    int protoDepth = 0;
    int externProtoDepth = 0;
    extProtoInfo externInfo[kMaxExternDepth + 1];
    int inScriptFlag = 0;
    int nodeDepth = 0;
    // The name of the node finished last, or of the USE'd node.
    std::string nodeNameBuffer;
    // One growing text per MFNode value being read: "[ name,name,NULL, ]".
    std::vector<std::string> mfNodeStack;
    int anonymousCount = 0;
    std::string suffixBuffer;
    int defCounterStack[kDefCounterDepth] = {};
    int defCounterDepth = 0;

    // State of the semantic bodies; owned, defined beside them.
    znParserRecord* record;

private:
    zn_Lexer* lexer;  // owning
    std::string defNameBuffer;
    std::map<std::string, int> defCounters;  // DEF name -> number of its latest DEF
};

#endif
