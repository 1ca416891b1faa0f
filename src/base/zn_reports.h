// The reports and questions through which every message of the system
// ends, behind a context that a load, a host or a test installs: by default
// they are written on standard error, and questions are put on a terminal.
#ifndef ZN_REPORTS_H
#define ZN_REPORTS_H

#include <string>

struct znPromptAnswer {
    char name[256];
    int answered;
};

// The kinds of report: a note of progress, a recoverable problem, a
// skipped or wrong item, and a question that was put.
enum class znReportKind { info, message, alert, question };

struct znReport {
    znReportKind kind;
    const char* text;
    const char* file;  // the file being read, or ""
    int line;          // its line, or 0
};

// Where the reports and the questions of the code on one thread go. A load
// installs one for its course (znReportScope); without one, reports go to
// standard error and questions are put on a terminal.
class znReportContext {
public:
    virtual ~znReportContext() = default;
    // Receives every report; by default its console text on standard error.
    virtual void report(const znReport& report);
    // Answers a question: yes (true) or no; with `name` set, a yes is
    // followed by the name it gives. By default standard input answers,
    // when it is a terminal and questions are allowed; otherwise the default
    // (no) is taken at once, and a report says so.
    virtual bool answer(const char* question, std::string* name);

    // The host lets the loader put questions.
    bool questionsAllowed = true;
    // Where the parse stands, while one runs (znReportPosition).
    const std::string* file = nullptr;
    const int* line = nullptr;

    // What came out of the load: reports by kind, and the syntax error that
    // stopped a parse, if one did.
    int counts[4] = {0, 0, 0, 0};
    struct SyntaxError {
        std::string file, message, text;
        int line = 0;
    };
    SyntaxError lastError;
    bool hasError = false;
    bool parseFailed = false;
    SyntaxError parseError;
};

// The context in force on this thread (a default one when none is).
znReportContext& znReports();

// Installs `context` on this thread for the life of the object.
class znReportScope {
public:
    explicit znReportScope(znReportContext& context);
    ~znReportScope();
    znReportScope(const znReportScope&) = delete;
    znReportScope& operator=(const znReportScope&) = delete;

private:
    znReportContext* previous;
};

// Makes reports name the file and line that `file` and `line` hold while
// the object lives: the parser's position.
class znReportPosition {
public:
    znReportPosition(const std::string& file, const int& line);
    ~znReportPosition();
    znReportPosition(const znReportPosition&) = delete;
    znReportPosition& operator=(const znReportPosition&) = delete;

private:
    znReportContext& context;
    const std::string* previousFile;
    const int* previousLine;
};

void znMessage(const char* text);
void znAlert(const char* text);
// A note of progress, written as a message.
void znInform(const char* text);
int znConfirm(const char* text);
znPromptAnswer znPrompt(const char* text);
// A syntax error of the parse: kept as the context's latest, and as the one
// that stopped the parse when znParseFailed follows.
void znSyntaxError(const char* file, int line, const char* message, const char* text);
void znParseFailed();

#endif
