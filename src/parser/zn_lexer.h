// zn_Lexer: VRML 97 text to tokens. The parser names, through expect, the
// type of the field whose value comes next, and the lexer reads that whole
// value, however long, as one token whose semantic value is its text.
#ifndef ZN_LEXER_H
#define ZN_LEXER_H

#include <cstdint>
#include <string>
#include <vector>

#include "base/zn_memory.h"

#ifndef yyFlexLexerOnce
#include <FlexLexer.h>
#endif

class znParser;

// A fatal error of the scanner, which ends the parse it happened in.
struct znScanError {
    const char* message;
};

// A heap copy of `text`, for token values that the grammar hands on.
char* znCopyText(const char* text);
// A name token: given back soon, in about the reverse order of taking, so
// it does not come from the heap. Never a value, which a record keeps.
char* znNameText(const char* text, std::size_t length);
// Name tokens taken and not yet given back.
std::size_t znNameTextsHeld();
// The end of a token text that znCopyText, znNameText or the lexer made;
// null is none.
void znReleaseText(char* text);

// The token texts that one grammar action hands over, released when the
// action's call returns.
class znTokenTexts {
public:
    template <class... Texts>
    explicit znTokenTexts(Texts... given) : texts{given...}, count(sizeof...(given)) {}
    ~znTokenTexts() {
        for (int i = 0; i < count; ++i) znReleaseText(texts[i]);
    }
    znTokenTexts(const znTokenTexts&) = delete;
    znTokenTexts& operator=(const znTokenTexts&) = delete;

private:
    char* texts[4];
    int count;
};

class zn_Lexer : public yyFlexLexer {
public:
    // Size of every scanner input buffer.
    static constexpr int kInputBufferSize = 16384;
    // A list buffer starts with this many bytes and grows by as many.
    static constexpr std::uint32_t kListChunk = 100000;

    explicit zn_Lexer(znParser* parser);
    ~zn_Lexer() override;

    // Stores where the token's text goes (a char* cell), then scans.
    int yylex(void* lvalue);
    // The next token number, a character code, or 0 at end of input.
    int yylex() override;
    int yywrap() override;
    // A read that fails ends the input, with an error of the parse, rather
    // than the scanner's fatal error.
    int LexerInput(char* buffer, int size) override;
    // The scanner's own fatal errors end the parse (znScanError), not the
    // process.
    void LexerError(const char* message) override;

    // What the parser tells the lexer: the type token (271..290) of the
    // value to read next, 0 for none.
    void expect(int token) { expectToken = token; }
    int expected() const { return expectToken; }
    // The line being read, counted from 1; the reference stays valid for
    // the lexer's life, for reports that quote the line as it moves on.
    const int& lineNumber() const { return currentLine; }
    void setLineNumber(int line) { currentLine = line; }
    void yyResetLineNumber();
    // The input of the parse failed to read; cleared when a parse begins.
    bool inputFailed() const { return inputFailedFlag != 0; }
    void beginInput(std::istream* input);
    // Appends one list item and a comma to the list buffer; answers the
    // buffer, which may have moved.
    char* dynstrcat(char* buffer, const char* text);
    // The same with the length known, as the scanner always has it.
    char* appendItem(char* buffer, const char* text, std::size_t length);
    // A value written without brackets: the one-item list "[text]".
    int parsemf();
    // Drops what is buffered of the current input, so that the next parse
    // starts clean.
    void flush_current_buffer();

    // The stack of inputs of EXTERNPROTO reads. push_buffer answers whether
    // a URL of the current EXTERNPROTO opened.
    int push_buffer();
    int next_file();
    void pop_buffer();

    int debugFlag() const { return yy_flex_debug; }

private:
    // The start state for the parser's expectToken; 0 when the token needs
    // no scanning (the node types) or is not a value type.
    int startStateFor(int token) const;
    void appendString(const char* text, std::size_t length);
    void appendString(const char* text) { appendString(text, std::char_traits<char>::length(text)); }
    void resetToNode();
    // The end of the value of an unknown field: back to NODE, and the token
    // that stands for the value.
    int endSkippedValue();
    // Counts the line feeds of yytext when a skipped value's pattern read them.
    void countLines();
    void beginList();
    int endList();
    // Lets go of a list whose "]" never came.
    void dropList();
    // Appends yytext, or the finished string, as one item to the list.
    void dynstrcat_current();
    void dynstrcat_string();
    // After an item of a number list: reads on through the items that
    // follow in their plainest form, as the item rule would one by one, with
    // none of the automaton's work per character. `numbers` per item;
    // `integers` for an MFInt32 list.
    void scanPlainItems(int numbers, bool integers);
    int parsePrototypeKeyword(std::size_t keywordLength);
    // The width and height that begin the text of an SFImage.
    static void readImageSize(const char* text, int& width, int& height);

    znParser* parser;                 // back pointer to the owning parser
    char** lvalue = nullptr;          // borrowed: the parser's semantic-value cell
    int expectToken = 0;
    int currentLine = 1;
    int inputFailedFlag = 0;
    // The list being read, owned here until its "]" hands it to the grammar.
    char* listBuffer = nullptr;
    std::uint32_t listLength = 0;
    std::uint32_t listCapacity = 0;
    std::string stringBuffer;
    int inList = 0;
    int imageCount = 0;
    int imageTotal = 0;
    // Open braces and brackets of what is skipped; 0 before the first.
    int skipDepth = 0;
    // What is skipped is a field's value, not a node's body.
    int skippingValue = 0;
    std::vector<yy_buffer_state*> bufferStack;  // owning: suspended inputs
    std::vector<std::istream*> inputStack;      // borrowed: streams of EXTERNPROTO reads
};

#endif
