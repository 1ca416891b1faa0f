// znParser: one parsing set-up with its lexer, its stacks and name spaces,
// and the database that finished declarations go to. The grammar's actions
// call the semantic methods; the lexer reads and writes the public cells.
#ifndef ZN_PARSER_H
#define ZN_PARSER_H

#include <iosfwd>
#include <deque>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "base/zn_name_table.h"
#include "base/zn_text.h"
#include "parser/vrmlnode.h"
#include "parser/zn_scoped_names.h"

class zn_Lexer;
class zn_URL;
class znDatabase;
class VrmlNodeType;
struct FieldRec;

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
    int failed = 0;   // no URL of the list gave the PROTO sought
    std::vector<const char*> urls;  // owning (malloc'd copies)
    int urlIndex = 0;
};


// Copies `text` as a buffer of `capacity` bytes would hold it: a longer
// text keeps its start, and `what` is named in a message.
void znParserBoundedCopy(std::string& out, const char* text, int capacity, const char* what);

// A ROUTE met inside a node, kept until the node is finished.
struct RouteInfo {
    char* fromNode;   // owning
    char* fromField;  // owning
    char* toNode;     // owning
    char* toField;    // owning
};

// Searches a colon-separated list of directories for the Node Support file
// of a hosted loader. The colons of `list` are overwritten in place; the
// answer is a process-wide buffer, or null when no element has the file.
char* getPerfPath(char* list);

// Steps over a UTF-8 byte order mark at the start of `input`.
void skipByteOrderMark(std::istream& input);

class znParser {
public:
    static constexpr int kMaxProtoDepth = 40;     // one field-nesting count per level
    static constexpr int kMaxExternDepth = 10;
    // Longest file name.
    static constexpr int kFilenameLength = 512;
    // InitParser's flag bits.
    static constexpr int kGrammarTrace = 1;
    static constexpr int kLexerTrace = 2;
    static constexpr int kOutput = 4;

    // `db` (borrowed) receives the declarations when the output bit is set.
    explicit znParser(znDatabase* db = nullptr);
    ~znParser();
    znParser(const znParser&) = delete;
    znParser& operator=(const znParser&) = delete;

    // --- the parse run (zn_parser_run.cpp) ---

    // Finds and reads the Node Support file; 1 on success. `url` (borrowed)
    // opens every later file; `browserType` is the kind of browser the
    // parse serves (4: hosted by another renderer, which keeps the file
    // elsewhere; 1: built-in classes only, no init functions).
    int InitParser(int flags, zn_URL* url, int browserType = 0);
    int getBrowserType() const { return browserType; }
    // Reads one file or URL into the database: 1 if it could be opened,
    // whether or not its text was correct.
    int ParseURL(const char* url);
    // Fresh PROTO and field stacks; always 1.
    int yypinit();
    // Reads one open input as a file of its own: its PROTOs and names leave
    // the name space at its end. Answers yyparse's result.
    int parseInput(std::istream& input, const char* filename);
    // Reads an input into the base name space, as the Node Support file is
    // read; its types stay for the parser's life.
    int parseSystemInput(std::istream& input, const char* filename);
    bool outputEnabled() const { return outputFlag != 0; }
    // Record blocks of nodes that went to the database, with the room of
    // their three tables, for the next node with as many records: a big
    // type's block is a large request, which costs the general allocator far
    // more than a small one. The tables given are empty, and come back so.
    std::unique_ptr<VrmlNodeType::NameTypeRec[]> takeRecords(std::size_t count, VrmlNodeType::Table* tables);
    void keepRecords(std::unique_ptr<VrmlNodeType::NameTypeRec[]> block, std::size_t count,
                     VrmlNodeType::Table* tables);
    znDatabase* getDatabase() { return database; }
    // Cuts to the file-name buffer's length, with a message when cut.
    void setCurrentFilename(const char* name);
    // The world is replaced: the names of its types are free again.
    void forgetWorld();

    // --- permanent part (zn_parser.cpp) ---

    // Forwards to the lexer; all that yyparse knows of it.
    int call_yylex(void* lvalue);
    // Reports an error of the parse at the current line and clears
    // the lexer's expected token; it stops nothing by itself.
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

    // --- what the grammar's actions call (zn_parser_grammar.cpp) ---
    // Each action is one of these calls. The token texts passed as `char*`
    // are the lexer's, handed over with the call, which releases them.

    // A node's start: its type, and its DEF name when it has one. A node of
    // an unknown type is reported, once per type and file, and skipped.
    void enterAnonymousNode(const char* type);
    void enterDefNode(const char* defName, const char* type);
    // A node's end: nodeNameBuffer names it, or is kNoNode when it was
    // skipped.
    void endNodeDeclaration(char* type, char* defName = nullptr);
    void useNode(char* defName);
    // A field or event of the node being read: its name, then its value
    // (owned from here on) or the PROTO field it IS.
    void enterField(const char* name);
    void endField(char* name, char* value);
    void setFieldValue(const char* value);
    void exitField();
    // The value text of a field bound by IS; `keyword` is the SFNode or
    // MFNode token in front of the IS, if there was one.
    char* fieldIS(char* protoField, char* keyword = nullptr);
    // Node-valued fields; the finished value texts are the caller's.
    void enterNodeValue();
    char* endSFNodeValue(char* keyword);
    void enterMFNodeValue();
    char* endMFNodeValue(char* keyword);
    void openMFNodeList();
    void closeMFNodeList();
    void singleMFNode();
    void appendMFNode();
    void appendMFNodeNull();
    // The interface of a PROTO; `kind` is the token of the keyword.
    void declareEvent(int kind, char* type, char* name);
    void declareProtoField(char* type, char* name, char* value);
    void endProtoDeclaration(char* name);
    // Declarations inside a Script node.
    void beginScriptField(const char* type, const char* name);
    void beginScriptExposedField(const char* type, const char* name);
    void endScriptField(char* type, char* name, char* value);
    void declareScriptEvent(int kind, char* type, char* name);
    void addScriptEventIS(int kind, char* type, char* name, char* protoField);
    // An interface item of the EXTERNPROTO being declared; `kind` is the
    // token of its keyword.
    void addExternInterface(int kind, char* type, char* name);
    // The end of an EXTERNPROTO declaration, with its name and URL list.
    void finishExternProto(char* name, char* urls);
    void declareRoute(char* fromNode, char* fromField, char* toNode, char* toField);

    // --- semantic methods (zn_parser_actions.cpp) ---

    void enterNode(const char* type);
    void exitNode();
    void setName(const char* name);
    void getName();
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
    // A file read for an EXTERNPROTO ended without the PROTO sought.
    void reportExternMiss();
    // After an EXTERNPROTO that stood in for the PROTO sought by the file
    // holding it: that PROTO now exists, so the file's reading ends too.
    void endStandIn();
    void inScript();
    void setRoute(const char* fromNode, const char* fromField, const char* toNode,
                  const char* toField);
    void createToplevelUSE(const char* name);

    // The name a node value gets when its declaration made no node.
    static constexpr const char* kNoNode = "NULL";

    // --- what the lexer asks of the parse (zn_parser.cpp) ---

    bool isSkippingNode() const { return skippingNode != 0; }
    bool readingExternFile() const { return externProtoDepth != 0; }
    // True once when the EXTERNPROTO being read has ended: its PROTO was
    // made, no URL of it opened, or it opened no level at all.
    bool takeExternProtoEnd();
    // A file read for an EXTERNPROTO ended without the PROTO sought.
    void externFileEnded();
    // "PROTO name" stands in a file read for an EXTERNPROTO.
    void protoKeywordSeen(const char* name);
    // The next URL of the current EXTERNPROTO that opens, as the current
    // file; null when none is left, each failure alerted.
    std::istream* openNextExternInput();
    // Inputs of EXTERNPROTO reads; with ZN_EP_PATHSAVE set, an open keeps
    // the file's directory for relative names inside it.
    std::istream* openExternInput(const char* url);
    void closeExternInput(std::istream* input);
    // The line the lexer stands on.
    int currentLine() const;

    // --- cells of the parse ---

    int fieldNesting[kMaxProtoDepth] = {};
    std::string currentFilename;
    int skippingNode = 0;
    int protoDepth = 0;
    int externProtoDepth = 0;
    extProtoInfo externInfo[kMaxExternDepth + 1];
    // An EXTERNPROTO opened no level of its own (the depth limit): the lexer
    // ends it with the next token.
    int externRefused = 0;
    int inScriptFlag = 0;
    int nodeDepth = 0;
    // The name of the node finished last, or of the USE'd node.
    std::string nodeNameBuffer;
    // One growing text per MFNode value being read: "[ name,name,NULL, ]".
    std::vector<std::string> mfNodeStack;
    std::size_t mfNodeDepth = 0;  // entries of mfNodeStack in use
    // The text of the innermost MFNode value.
    std::string& mfNodeText();
    int anonymousCount = 0;

private:
    // One EXTERNPROTO declaration being read: the interface it declares,
    // which serves when no URL gives the PROTO, and the name it defines.
    struct ExternDeclaration {
        std::unique_ptr<VrmlNodeType> interface;
        std::string name;
        bool levelOpened = false;
    };

    void pushNameSpace();
    void popNameSpace();
    // Destroys entries from the front up to and including the first scope mark.
    void popList(std::deque<VrmlNodeType*>& list);
    void addToNameSpace(VrmlNodeType* type);
    // Whether no look-up can reach a finished node of this name, so that
    // its record need not stay in the instance list.
    bool outOfReach(const char* instName) const;
    // Puts a type at the front of the type list, indexed.
    void enterType(VrmlNodeType* type);
    // The type a file names `name` here: inner scopes first, outer ones seen.
    VrmlNodeType* findType(const char* name);
    // Whether `name` is defined in the scope being read. At the top of a
    // file that scope is the file's together with the Node Support file's.
    bool definedInScope(const char* name);
    // A type by the name it has in the database.
    VrmlNodeType* typeByInternalName(const char* name);
    // An instance by name, the kind letter not compared.
    VrmlNodeType* findinstname(const char* name);
    // The name a PROTO declared as `declared` has in the database: `declared`
    // itself unless another type of the world has that name already, as an
    // inner PROTO that shares its name with an outer one does.
    std::string reserveTypeName(const char* declared);
    bool typeNameTaken(const std::string& name) const;
    // Defines the PROTO of an EXTERNPROTO that no URL gave, with the
    // declared interface and no body, so that its nodes parse and build
    // nothing.
    void defineUnresolvedExtern(ExternDeclaration& declaration);
    void flushPendingRoutes();
    // A PROTO body opens a scope of DEF names, and its end closes it.
    void openDefScope();
    void closeDefScope();
    int add(void (VrmlNodeType::*member)(const char*, int), const char* type, const char* name);
    void addRoute(const char* fromNode, const char* fromField, const char* toNode, const char* toField);
    void addRoute(const char* fromType, const char* fromNode, const char* fromField, const char* toType,
                  const char* toNode, const char* toField);
    // The instance being read, or null.
    VrmlNodeType* topInstance();
    // The type of the node a route names (the instance being read, or one
    // finished); null, with the message, when there is none.
    VrmlNodeType* routeEnd(const char* node);
    int runParse(std::istream& input, const char* filename);

    std::list<VrmlNodeType*> protoStack;  // owning: PROTOs whose body is read, innermost last
    std::vector<FieldRec*> fieldStack;    // owning
    zn_Lexer* lexer;                      // owning
    znDatabase* database;                 // borrowed: the database that owns this parser
    std::vector<RouteInfo*> pendingRoutes;  // owning
    int readingNodeSupport = 0;
    int browserType = 0;
    // ZN_EP_PATHSAVE as the parse run found it.
    int savePaths = 0;
    int outputFlag = 0;
    // Both grow at the front; a null entry marks where a scope begins. A
    // file puts every node it holds here: a block holds many entries.
    std::deque<VrmlNodeType*> typeNameSpace;      // owning
    std::deque<VrmlNodeType*> instanceNameSpace;  // owning
    // The scope marks in each list, and indexes of their entries: types by
    // the name a file uses and by the name in the database, instances by
    // their name less its kind letter. A world of many nodes, PROTOs,
    // Scripts and ROUTEs would otherwise walk the lists once per name.
    int typeScopes = 0;
    int instanceScopes = 0;
    znScopedNames typesByDeclaredName;
    znScopedNames typesByName;
    // Only a ROUTE looks an instance up, so its name is entered when the
    // first ROUTE after it needs it.
    znScopedNames instancesByName{[](const VrmlNodeType* type) { return std::string_view(type->instName + 1); }};
    // What a file's DEFs left of one name. The number goes on from file to
    // file, so that node names stay apart in the world, while a name is
    // known only in the file of its latest DEF. A PROTO body's DEFs are its
    // own: at the end of the body the names it hid are seen again, while
    // the numbers go on, so that names stay apart.
    static constexpr int kNoDef = -1;
    struct DefName {
        int latest = 0;         // the number of its latest DEF
        int visible = kNoDef;   // the number that a USE or ROUTE sees
        int file = 0;           // the file of the DEF it sees
    };
    // DEF name -> its entry in `defNames`: hashed, as a file may DEF a name
    // per node and nothing walks them in order; one look-up serves a DEF.
    znNameTable defIndex;
    std::vector<DefName> defNames;
    struct HiddenDef {
        int index;  // in defNames
        int number;  // kNoDef when there was none
        int file;
    };
    std::vector<HiddenDef> defUndo;
    std::vector<std::size_t> defScopes;  // where each open body's entries of defUndo begin
    // Counts the files read by ParseURL and parseInput.
    int fileSerial = 0;
    // DEF names (without their kind letter) of skipped nodes: a USE of one
    // is no node.
    znNameTable skippedDefs;
    // Unknown types, and unknown fields as "Type.field", reported in this
    // file.
    znNameTable reportedUnknownTypes;
    znNameTable reportedUnknownFields;
    // Type names given to the database: those of the Node Support file,
    // and those of the world being read.
    znNameTable systemTypeNames;
    znNameTable worldTypeNames;
    // Declared before every record that may give its block back here.
    struct SpareRecords {
        std::size_t count;
        std::unique_ptr<VrmlNodeType::NameTypeRec[]> block;
        VrmlNodeType::Table tables[3];
    };
    std::vector<SpareRecords> spareRecords;
    // EXTERNPROTO declarations being read, innermost last.
    std::vector<ExternDeclaration> externStack;
    // The interface of the EXTERNPROTO whose "[ ]" is being read.
    std::unique_ptr<VrmlNodeType> pendingExternInterface;
    // The PROTO being declared: owning until inProto puts it on protoStack,
    // borrowed from there on.
    VrmlNodeType* currentProto = nullptr;
    std::string defNameBuffer;
    // A field name given at the prompt, for the FieldRec that points to it.
    std::string correctedFieldName;
    zn_URL* urlInterface = nullptr;  // borrowed
};

#endif
