// The parse run: making the parser, finding and reading the Node Support
// file, reading a world file, and the inputs of EXTERNPROTO reads.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

#include "database/zn_database.h"
#include "base/zn_reports.h"
#include "base/zn_text.h"
#include "parser/node_support_beside_library.h"
#include "parser/parser_messages.h"
#include "parser/vrmlnode.h"
#include "parser/zn_lexer.h"
#include "parser/zn_parser.h"
#include "url/zn_URL.h"

namespace {

// Where the Node Support file was found, and the buffer paths are built in.
char perfPathBuffer[znParser::kFilenameLength];
std::string nodeSupportPath;

// Builds a candidate path; one that does not fit is not tried.
const char* candidate(const char* format, const char* directory) {
    const int length = std::snprintf(perfPathBuffer, sizeof perfPathBuffer, format, directory);
    return length >= 0 && length < static_cast<int>(sizeof perfPathBuffer) ? perfPathBuffer : nullptr;
}

bool opens(const char* path) {
    if (path == nullptr) return false;
    FILE* probe = std::fopen(path, "r");
    if (probe == nullptr) return false;
    std::fclose(probe);
    return true;
}

}  // namespace

// Steps over a byte order mark at the start of an input, which the scanner
// would otherwise read as the start of a name.
void skipByteOrderMark(std::istream& input) {
    char head[3];
    input.read(head, sizeof head);
    if (input.gcount() == 3 && std::memcmp(head, kByteOrderMark, 3) == 0) return;
    input.clear();
    input.seekg(0);
}

char* getPerfPath(char* list) {
    if (list == nullptr) return nullptr;
    char* element = list;
    for (;;) {
        char* colon = std::strchr(element, ':');
        if (colon != nullptr) *colon = '\0';
        if (opens(candidate(kNodeSupportInDirectory, element))) return perfPathBuffer;
        if (colon == nullptr) return nullptr;
        element = colon + 1;
    }
}

znParser::znParser(znDatabase* db) : lexer(nullptr), database(db) {
    lexer = new zn_Lexer(this);
    lexer->set_debug(0);
    yydebug = 0;
}

znParser::~znParser() {
    while (externProtoDepth > 0) endExternProto();
    yypinit();
    while (!typeNameSpace.empty()) popList(typeNameSpace);
    while (!instanceNameSpace.empty()) popList(instanceNameSpace);
    delete lexer;
}

int znParser::yypinit() {
    while (!defScopes.empty()) closeDefScope();
    for (VrmlNodeType* proto : protoStack) {
        if (proto == currentProto) currentProto = nullptr;
        delete proto;
    }
    protoStack.clear();
    delete currentProto;
    currentProto = nullptr;
    for (FieldRec* rec : fieldStack) {
        delete rec->nodeType;
        delete rec;
    }
    fieldStack.clear();
    for (RouteInfo* route : pendingRoutes) {
        std::free(route->fromNode);
        std::free(route->fromField);
        std::free(route->toNode);
        std::free(route->toField);
        delete route;
    }
    pendingRoutes.clear();
    externStack.clear();
    pendingExternInterface.reset();
    externRefused = 0;
    return 1;
}

void znParser::setCurrentFilename(const char* name) {
    znParserBoundedCopy(currentFilename, name, kFilenameLength, "File name");
}

int znParser::runParse(std::istream& input, const char* filename) {
    setCurrentFilename(filename);
    lexer->yyResetLineNumber();
    const znReportPosition position(currentFilename, lexer->lineNumber());
    // Whether EXTERNPROTO reads keep their files' directories is the
    // environment's word, taken once for the parse.
    savePaths = std::getenv("ZN_EP_PATHSAVE") != nullptr ? 1 : 0;
    skipByteOrderMark(input);
    reportedUnknownTypes.clear();
    reportedUnknownFields.clear();
    skippedDefs.clear();
    lexer->beginInput(&input);
    int result = 1;
    try {
        result = yyparse(this);
    } catch (const znScanError& error) {
        yyerror(error.message);
    }
    if (lexer->inputFailed()) result = 1;
    if (result != 0) znParseFailed();
    // A parse that stopped inside a file read for an EXTERNPROTO goes back
    // to the file it began with.
    while (externProtoDepth > 0) endExternProto();
    lexer->flush_current_buffer();
    // A parse stopped by an error leaves its open nodes and PROTOs behind.
    yypinit();
    nodeDepth = 0;
    protoDepth = 0;
    skippingNode = 0;
    inScriptFlag = 0;
    mfNodeStack.clear();
    mfNodeDepth = 0;
    fieldNesting[0] = 0;
    return result;
}

int znParser::parseInput(std::istream& input, const char* filename) {
    ++fileSerial;
    pushNameSpace();
    const int result = runParse(input, filename);
    popNameSpace();
    return result;
}

int znParser::parseSystemInput(std::istream& input, const char* filename) {
    readingNodeSupport = 1;
    const int result = runParse(input, filename);
    readingNodeSupport = 0;
    lexer->yyResetLineNumber();
    return result;
}

int znParser::InitParser(int flags, zn_URL* url, int type) {
    browserType = type;
    fieldNesting[0] = 0;
    externInfo[0].created = 0;
    externInfo[0].wanted = 0;
    urlInterface = url;
    yydebug = (flags & kGrammarTrace) != 0 ? 1 : 0;
    lexer->set_debug((flags & kLexerTrace) != 0 ? 1 : 0);
    outputFlag = flags & kOutput;
    yypinit();

    const char* path = nullptr;
    if (browserType != 4) {
        path = std::getenv("ZNBUILTINS");
        if (path == nullptr) path = nodeSupportBesideLibrary();
    } else {
        // A loader hosted by another renderer looks where that renderer
        // keeps its files.
        const char* home = std::getenv("PFHOME");
        if (char* list = std::getenv("PFLD_LIBRARY_PATH")) path = getPerfPath(list);
        if (path == nullptr && opens(kNodeSupportHere)) path = kNodeSupportHere;
        if (path == nullptr) {
            if (char* list = std::getenv("LD_LIBRARY_PATH")) path = getPerfPath(list);
        }
        if (path == nullptr) {
            const char* tried = home != nullptr ? candidate(kNodeSupportUnderHome, home) : kNodeSupportSystem;
            if (opens(tried)) path = tried;
        }
        if (path == nullptr) {
            const char* tried =
                home != nullptr ? candidate(kNodeSupportSharedUnderHome, home) : kNodeSupportShared;
            if (opens(tried)) path = tried;
        }
        if (path == nullptr) {
            znAlert(kNodeSupportNotFound);
            return 0;
        }
    }
    std::ifstream* stream = nullptr;
    if (path != nullptr) {
        nodeSupportPath = path;
        stream = new std::ifstream(nodeSupportPath);
    }
    if (stream == nullptr || !stream->good()) {
        delete stream;
        znAlert(kNodeSupportOpenFailed);
        return 0;
    }
    // An error in the file leaves the types read before it.
    parseSystemInput(*stream, nodeSupportPath.c_str());
    delete stream;
    return 1;
}

int znParser::ParseURL(const char* url) {
    fieldNesting[0] = 0;
    const char* name = url != nullptr ? url : "";
    std::ifstream* stream = urlInterface != nullptr ? urlInterface->iopenURL(name, 1) : nullptr;
    if (stream == nullptr || !stream->good()) {
        // A refused or failed open still holds its entry on the directory
        // stack.
        if (urlInterface != nullptr) urlInterface->icloseURL(stream, 1);
        delete stream;
        znAlert(znFormatText(kCouldNotOpenURL, name).c_str());
        return 0;
    }
    ++fileSerial;
    pushNameSpace();
    const int result = runParse(*stream, name);
    if (result != 0) znAlert(kUnableToParse);
    urlInterface->icloseURL(stream, 1);
    lexer->yyResetLineNumber();
    // Every PROTO and node of the file leaves the name space; the database
    // keeps what it received.
    popNameSpace();
    const char* slash = std::strrchr(name, '/');
    znInform(znFormatText(kDoneLoading, slash != nullptr ? slash + 1 : name).c_str());
    delete stream;
    return 1;
}

std::istream* znParser::openExternInput(const char* url) {
    if (urlInterface == nullptr) return nullptr;
    std::ifstream* stream = urlInterface->iopenURL(url, savePaths);
    if (stream == nullptr || !stream->good()) {
        urlInterface->icloseURL(stream, savePaths);
        delete stream;
        return nullptr;
    }
    skipByteOrderMark(*stream);
    return stream;
}

void znParser::closeExternInput(std::istream* input) {
    auto* stream = dynamic_cast<std::ifstream*>(input);
    if (stream == nullptr || urlInterface == nullptr) return;
    urlInterface->icloseURL(stream, savePaths);
    delete stream;
}
