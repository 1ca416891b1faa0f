/*
 * The grammar of the VRML 97 text that the loader accepts. Every semantic
 * decision sits in znParser: each action is one call of it, which takes the
 * token texts it is given and releases them.
 *
 * The empty markers m1 .. m14 run their action in the middle of a
 * production, and several of them (m1, m2, m5 .. m10, m14) set what the
 * lexer is to read next or where it reads from. That works only because a
 * state whose one action is a default reduction reduces without reading a
 * look-ahead token; each marker is used once, so its action reaches the
 * symbols before it through $0, $-1, ...
 *
 * Rules that real files need beyond the first grammar stand at the end, so
 * that the numbers of the others, which the trace shows, stay as they are.
 *
 * There is no error rule: the first token the tables refuse ends the parse
 * with "parse error".
 */

%code {
#include <cstdlib>
#include <cstring>
#include <string>

#include "parser/parser_messages.h"
#include "parser/parser_trace.h"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"

#define P (static_cast<znParser*>(parser))

// The stacks start on the processor stack of yyparse and may grow, by
// doubling, to this limit; beyond it "parser stack overflow".
#define YYINITDEPTH 200
#define YYMAXDEPTH 10000

// The generator's trace and wording are mapped onto this system's own.
#define YYFPRINTF znGrammarTrace
#define YY_(text) znGrammarWording(text)

static int yylex(char** value, void* parser) {
    const int token = P->call_yylex(value);
    znGrammarTraceToken(token);
    return token;
}
static void yyerror(void* parser, const char* message) { P->yyerror(message); }

}

%define api.pure full
%define api.value.type {char*}
%define parse.trace
%parse-param {void* parser}
%lex-param {void* parser}
%expect 0

%token IDENTIFIER 258
%token DEF 259
%token USE 260
%token PROTO 261
%token EXTERNPROTO 262
%token TO 263
%token IS 264
%token ROUTE 265
%token SFN_NULL 266
%token EVENTIN 267
%token EVENTOUT 268
%token FIELD 269
%token EXPOSEDFIELD 270
%token SFBOOL 271
%token SFCOLOR 272
%token SFFLOAT 273
%token SFIMAGE 274
%token SFINT32 275
%token SFNODE 276
%token SFROTATION 277
%token SFSTRING 278
%token SFTIME 279
%token SFVEC2F 280
%token SFVEC3F 281
%token MFCOLOR 282
%token MFFLOAT 283
%token MFINT32 284
%token MFROTATION 285
%token MFSTRING 286
%token MFTIME 287
%token MFVEC2F 288
%token MFVEC3F 289
%token MFNODE 290
%token GARBAGE 291
%token EXTPROTOCREATED 292
%token SKIPPEDVALUE 293

%start vrmlscene

/* Every token text and every field value is a text of the lexer's that the
   actions hand on; the ones a parse that stops leaves on its stacks go here. */
%destructor { znReleaseText($$); } IDENTIFIER SFBOOL SFCOLOR SFFLOAT SFIMAGE SFINT32 SFNODE SFROTATION
%destructor { znReleaseText($$); } SFSTRING SFTIME SFVEC2F SFVEC3F MFCOLOR MFFLOAT MFINT32 MFROTATION
%destructor { znReleaseText($$); } MFSTRING MFTIME MFVEC2F MFVEC3F MFNODE fieldValue

%%

vrmlscene
    : declarations
    ;

declarations
    : %empty
    | declarations declaration
    ;

declaration
    : nodeDeclaration
    | protoDeclaration
    | routeDeclaration
    ;

    /* Type { ... }, DEF name Type { ... }, USE name */
m1
    : %empty { P->enterAnonymousNode($0); }
    ;

nodeDeclaration
    : IDENTIFIER m1 nodeg { P->endNodeDeclaration($1); }
    ;

m2
    : %empty { P->enterDefNode($-1, $0); }
    ;

nodeDeclaration
    : DEF IDENTIFIER IDENTIFIER m2 nodeg { P->endNodeDeclaration($3, $2); }
    | USE IDENTIFIER { P->useNode($2); }
    ;

    /* PROTO name [ interface ] { body } and EXTERNPROTO name [ interface ] urls */
protoDeclaration
    : proto
    | externproto
    ;

m3
    : %empty { P->beginProto($0); }
    ;

m4
    : %empty { P->inProto($-4); }
    ;

proto
    : PROTO IDENTIFIER m3 '[' interfaceDeclarations ']' m4 '{' declarations '}' { P->endProtoDeclaration($2); }
    ;

m5
    : %empty { P->expect(MFSTRING); }
    ;

m6
    : %empty { P->beginExternProto($-5, $0); }
    ;

externproto
    : EXTERNPROTO IDENTIFIER '[' externInterfaceDeclarations ']' m5 fieldValue m6 declarations EXTPROTOCREATED {
        P->finishExternProto($2, $7);
    }
    ;

interfaceDeclarations
    : %empty
    | interfaceDeclarations interfaceDeclaration
    ;

interfaceDeclaration
    : EVENTIN IDENTIFIER IDENTIFIER { P->declareEvent(EVENTIN, $2, $3); }
    | EVENTOUT IDENTIFIER IDENTIFIER { P->declareEvent(EVENTOUT, $2, $3); }
    ;

m7
    : %empty { P->expect(P->addField($-1, $0)); }
    ;

interfaceDeclaration
    : FIELD IDENTIFIER IDENTIFIER m7 fieldValue { P->declareProtoField($2, $3, $5); }
    ;

m8
    : %empty { P->expect(P->addExposedField($-1, $0)); }
    ;

interfaceDeclaration
    : EXPOSEDFIELD IDENTIFIER IDENTIFIER m8 fieldValue { P->declareProtoField($2, $3, $5); }
    ;

    /* The interface of an EXTERNPROTO is the one its file declares; the
       declared one serves when no file gives the PROTO. */
externInterfaceDeclarations
    : %empty
    | externInterfaceDeclarations externInterfaceDeclaration
    ;

externInterfaceDeclaration
    : EVENTIN IDENTIFIER IDENTIFIER { P->addExternInterface(EVENTIN, $2, $3); }
    | EVENTOUT IDENTIFIER IDENTIFIER { P->addExternInterface(EVENTOUT, $2, $3); }
    | FIELD IDENTIFIER IDENTIFIER { P->addExternInterface(FIELD, $2, $3); }
    | EXPOSEDFIELD IDENTIFIER IDENTIFIER { P->addExternInterface(EXPOSEDFIELD, $2, $3); }
    ;

    /* ROUTE node.field TO node.field */
routeDeclaration
    : ROUTE IDENTIFIER '.' IDENTIFIER TO IDENTIFIER '.' IDENTIFIER { P->declareRoute($2, $4, $6, $8); }
    ;

    /* The body of a node. The lexer reads the whole body of an unknown
       type's node itself; GARBAGE comes only where no "{" follows the type. */
nodeg
    : '{' nodeGuts '}'
    ;

nodeGuts
    : %empty
    | nodeGuts nodeGut
    | garbage
    ;

garbage
    : GARBAGE garb
    ;

garb
    : %empty
    | garb GARBAGE
    | garb '{' garb '}'
    ;

m9
    : %empty { P->enterField($0); }
    ;

nodeGut
    : IDENTIFIER m9 fieldValue { P->endField($1, $3); }
    | routeDeclaration
    | protoDeclaration
    | EVENTIN IDENTIFIER IDENTIFIER { P->declareScriptEvent(EVENTIN, $2, $3); }
    | EVENTOUT IDENTIFIER IDENTIFIER { P->declareScriptEvent(EVENTOUT, $2, $3); }
    ;

m10
    : %empty { P->beginScriptField($-1, $0); }
    ;

nodeGut
    : FIELD IDENTIFIER IDENTIFIER m10 fieldValue { P->endScriptField($2, $3, $5); }
    | EVENTIN IDENTIFIER IDENTIFIER IS IDENTIFIER { P->addScriptEventIS(EVENTIN, $2, $3, $5); }
    | EVENTOUT IDENTIFIER IDENTIFIER IS IDENTIFIER { P->addScriptEventIS(EVENTOUT, $2, $3, $5); }
    ;

    /* A field value: one token whose text the lexer read, or nodes. */
fieldValue
    : SFBOOL
    | SFCOLOR
    | MFCOLOR
    | SFFLOAT
    | MFFLOAT
    | SFIMAGE
    | SFINT32
    | MFINT32
    | SFROTATION
    | MFROTATION
    | SFSTRING
    | MFSTRING
    | SFTIME
    | MFTIME
    | SFVEC2F
    | MFVEC2F
    | SFVEC3F
    | MFVEC3F
    ;

m11
    : %empty { P->enterNodeValue(); }
    ;

fieldValue
    : SFNODE m11 nodeDeclaration { $$ = P->endSFNodeValue($1); }
    | SFNODE SFN_NULL
    | MFNODE SFN_NULL
    ;

m12
    : %empty { P->enterMFNodeValue(); }
    ;

fieldValue
    : MFNODE m12 mfnodeValue { $$ = P->endMFNodeValue($1); }
    | IS IDENTIFIER { $$ = P->fieldIS($2); }
    | SFNODE IS IDENTIFIER { $$ = P->fieldIS($3, $1); }
    | MFNODE IS IDENTIFIER { $$ = P->fieldIS($3, $1); }
    ;

m13
    : %empty { P->openMFNodeList(); }
    ;

    /* The texts of an MFNode value belong to the MF-node stack until the
       value is complete. */
mfnodeValue
    : m13 '[' nodes ']' { P->closeMFNodeList(); }
    | nodeDeclaration { P->singleMFNode(); }
    ;

nodes
    : %empty
    | nodes nodeDeclaration { P->appendMFNode(); }
    | nodes SFN_NULL { P->appendMFNodeNull(); }
    | nodes protoDeclaration
    ;

    /* A Script's exposedField, read as a field with its two events. */
m14
    : %empty { P->beginScriptExposedField($-1, $0); }
    ;

nodeGut
    : EXPOSEDFIELD IDENTIFIER IDENTIFIER m14 fieldValue { P->endScriptField($2, $3, $5); }
    ;

    /* The value of a field its node does not have, passed over whole by
       the lexer. */
fieldValue
    : SKIPPEDVALUE
    ;

%%
