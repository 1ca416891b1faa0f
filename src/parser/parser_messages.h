// Every text that the lexer, the grammar and the parser's actions print.
#ifndef PARSER_MESSAGES_H
#define PARSER_MESSAGES_H

// Lexical errors, given to znParser::yyerror.
inline constexpr const char* kBadHeader = "Not a VRML file: bad header\n#VRML V2.0 utf8  is correct header";
inline constexpr const char* kBadExpectToken = "ACK: Bad ZNPARSER->_expectToken";
inline constexpr const char* kDoubleOpenBracket = "Double [";
inline constexpr const char* kUnmatchedCloseBracket = "Unmatched ]";
inline constexpr const char* kMissingOpenQuote = "String missing open-quote";
inline constexpr const char* kOutOfMemory = "out of memory\n";

// The lexer's own trace line, printed before a value state is entered.
inline constexpr const char* kLexStartStateTrace = "LEX--> Start State %d\n";

// The grammar's failures, in place of the generator's own wording.
inline constexpr const char* kParseError = "parse error";
inline constexpr const char* kStackOverflow = "parser stack overflow";

// How every error of the parse reaches the user: file, line, message, and
// the first 31 characters of the text being scanned.
inline constexpr const char* kErrorReport = "Error in %s near line %d: %s\nParsing: %s\n";
inline constexpr int kErrorTextLength = 31;

// Semantic helpers shared by every parser body.
inline constexpr const char* kIllegalFieldType = "Illegal field type: %s\n";
inline constexpr const char* kDefNameFailed = "failed making unique name for DEF'ed node %s.\n";
inline constexpr const char* kUseNameFailed = "failed getting unique name for DEF'ed node %s.\n";
inline constexpr const char* kDeclarationOutsideScript =
    "Field or event declaration outside of Script or prototype";
inline constexpr const char* kExternProtoTooDeep = "Can't exceed EXTERNPROTO depth of %d!\n";
inline constexpr const char* kExternProtoOpenFailed = "\nPARSE ERROR:  Could not open EXTERNPROTO %s.\n";

// The grammar's trace (yydebug).
inline constexpr const char* kTraceStart = "Starting parse\n";
inline constexpr const char* kTraceEnterState = "Entering state %d\n";
inline constexpr const char* kTraceReading = "Reading a token: ";
inline constexpr const char* kTraceEndOfInput = "Now at end of input.\n";
inline constexpr const char* kTraceNextToken = "Next token is %d (%s";
inline constexpr const char* kTraceNextTokenEnd = ")\n";
inline constexpr const char* kTraceShift = "Shifting token %d (%s), ";
inline constexpr const char* kTraceReduce = "Reducing via rule %d (line %d), ";
inline constexpr const char* kTraceReduceSymbol = "%s ";
inline constexpr const char* kTraceReduceResult = " -> %s\n";
inline constexpr const char* kTraceStack = "state stack now";
inline constexpr const char* kTraceErrorStack = "Error: state stack now";
inline constexpr const char* kTraceStackEntry = " %d";
inline constexpr const char* kTraceStackGrown = "Stack size increased to %d\n";
inline constexpr const char* kTraceDiscard = "Discarding token %d (%s).\n";
inline constexpr const char* kTraceShiftError = "Shifting error token, ";

#endif
