// Every text that the lexer, the grammar and the parser's actions print.
#ifndef PARSER_MESSAGES_H
#define PARSER_MESSAGES_H

// Lexical errors, given to znParser::yyerror.
inline constexpr const char* kBadHeader = "Not a VRML file: bad header\n#VRML V2.0 utf8  is correct header";
inline constexpr const char* kBadExpectToken = "ACK: Bad ZNPARSER->_expectToken";
inline constexpr const char* kDoubleOpenBracket = "Double [";
inline constexpr const char* kUnmatchedCloseBracket = "Unmatched ]";
inline constexpr const char* kMissingOpenQuote = "String missing open-quote";
// The input could not be read on (a directory, a file that went away).
inline constexpr const char* kInputFailed = "input could not be read";

// The lexer's own trace line, printed before a value state is entered.
inline constexpr const char* kLexStartStateTrace = "LEX--> Start State %d\n";
// The scanner's trace line at the end of an input.
inline constexpr const char* kLexEndOfInputTrace = "--EOF (start condition %d)\n";

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
inline constexpr const char* kExternProtoNotInFile = "\nPARSE ERROR:  No PROTO %s in EXTERNPROTO file %s.\n";
inline constexpr const char* kExternProtoNoneInFile = "\nPARSE ERROR:  No PROTO in EXTERNPROTO file %s.\n";
inline constexpr const char* kExternProtoUnresolved =
    "EXTERNPROTO %s: no URL of its list gives its PROTO; its nodes build nothing.\n";

// Declared types and their transfer to the database.
inline constexpr const char* kParentNestingTooDeep = "Parent nesting too deep!\n";
inline constexpr const char* kScriptTypeName = "Script";
inline constexpr const char* kScriptTypeFormat = "Script_%s";
// The value text of a field bound by IS: a mark, not a value.
inline constexpr const char* kISMarker = "IZZED";
// Pseudo-fields of the Node Support file, read from a type's interface.
inline constexpr const char* kImplementationField = "ZNurl";
inline constexpr const char* kInitField = "ZNinit";
inline constexpr const char* kSensorField = "ZNsensor";
inline constexpr const char* kGroupingField = "ZNgrouping";
inline constexpr const char* kNameField = "ZNname";

// The parse run: the Node Support file and the files read.
inline constexpr const char* kNodeSupportFileName = ".perfLoader.wrl";
inline constexpr const char* kNodeSupportInDirectory = "%s/.perfLoader.wrl";
inline constexpr const char* kNodeSupportHere = "./.perfLoader.wrl";
inline constexpr const char* kNodeSupportUnderHome = "%s/usr/lib/libpfdb/.perfLoader.wrl";
inline constexpr const char* kNodeSupportSystem = "/usr/lib/libpfdb/.perfLoader.wrl";
inline constexpr const char* kNodeSupportSharedUnderHome = "%s/usr/share/Renderer/lib/libpfdb/.perfLoader.wrl";
inline constexpr const char* kNodeSupportShared = "/usr/share/Renderer/lib/libpfdb/.perfLoader.wrl";
inline constexpr const char* kNodeSupportNotFound =
    "\nMake sure .perfLoader.wrl file is in PFLD_LIBRARY_PATH or . or LD_LIBRARY_PATH or $PFHOME/usr/lib/libpfdb"
    " or $PFHOME/usr/share/Renderer/lib/libpfdb\n";
inline constexpr const char* kNodeSupportOpenFailed =
    "\nCould not open Node Support file.\nCheck the ZNBUILTINS environment variable.\n";
inline constexpr const char* kCouldNotOpenURL = "Could not open URL:  %s.\n";
inline constexpr const char* kUnableToParse = "Unable to parse file.";
inline constexpr const char* kDoneLoading = "Done loading URL:  %s";
// Kept with the parser's texts; the parse run does not print it.
inline constexpr const char* kParsingURL = "\nParser:  Parsing url: ";
// Names longer than the parser's fixed buffers keep only their start.
inline constexpr const char* kTextCut = "%s cut to %d characters: %.80s";

// Semantic actions.
inline constexpr const char* kUnknownTypePrompt = "Unknown node type %s near line %d, correct one?";
inline constexpr const char* kUnknownTypeSkipped = "Unknown node type '%s', skipping node";
inline constexpr const char* kInvalidFieldTypePrompt = "Error: invalid field type: %s.\nWhat is the correct type?\n";
inline constexpr const char* kUnknownFieldPrompt =
    "Node's of type %s do not have fields/eventIn/EventOut named %s.\nWhat is the correct name?";
inline constexpr const char* kUnknownFieldSkipped = "Unknown field '%s' of %s, skipping its value";
inline constexpr const char* kProtoAlreadyDefined = "PROTO %s already defined";
inline constexpr const char* kAlreadyDefined = "%s:%s Already defined";
inline constexpr const char* kEmptyProtoStack = "Error: Empty PROTO stack!\n";
inline constexpr const char* kInvalidISFieldType = "Invalid IS field type: %d for field %s\n";
inline constexpr const char* kInvalidISEventInType = "Invalid IS EI type: %d for EI %s \n";
inline constexpr const char* kBadRouteUnknownNode = "BAD ROUTE:  Unknown node type '%s'";
inline constexpr const char* kBadRouteNotEventOut = "BAD ROUTE:  %s not an eventOut for %s";
inline constexpr const char* kBadRouteNotEventIn = "BAD ROUTE:  %s not an eventIn for %s";
inline constexpr const char* kBadRouteTypes = "BAD ROUTE: %s and %s are different types\n";
inline constexpr const char* kChangedSuffix = "_changed";
inline constexpr const char* kSetPrefixFormat = "set_%s";

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
