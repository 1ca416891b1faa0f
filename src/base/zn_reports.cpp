#include "base/zn_reports.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "base/base_messages.h"

namespace {

// Reads one integer answer. At end of input, or on an answer that is no
// number, `value` keeps what it held: the callers start it at 0.
void readAnswer(int& value) {
    std::fflush(stderr);
    if (std::scanf("%d", &value) != 1) {
        // Drop the rest of a non-numeric line so that a later question does
        // not read the same garbage again.
        int c;
        while ((c = std::getchar()) != EOF && c != '\n') {
        }
    }
}

thread_local znReportContext* currentContext = nullptr;

const char* consoleFormat(znReportKind kind) {
    return kind == znReportKind::alert ? kAlertFormat : kMessageFormat;
}

void send(znReportKind kind, const char* text) {
    znReportContext& context = znReports();
    ++context.counts[static_cast<int>(kind)];
    const char* file = context.file != nullptr ? context.file->c_str() : "";
    const int line = context.line != nullptr ? *context.line : 0;
    context.report(znReport{kind, text != nullptr ? text : "", file, line});
}

}  // namespace

znReportContext& znReports() {
    static znReportContext console;
    return currentContext != nullptr ? *currentContext : console;
}

void znReportContext::report(const znReport& r) {
    // A question's console text was written by the one who asked it.
    if (r.kind == znReportKind::question) return;
    std::fprintf(stderr, consoleFormat(r.kind), r.text);
}

bool znReportContext::answer(const char* question, std::string* name) {
    // A host that reads its own standard input, or has none to speak of,
    // must not lose it to a question: only a terminal is asked.
    if (!questionsAllowed || !isatty(STDIN_FILENO)) {
        std::fprintf(stderr, name != nullptr ? kPromptFormat : kConfirmFormat, question);
        std::fputs(name != nullptr ? kPromptNotAsked : kConfirmNotAsked, stderr);
        return false;
    }
    if (name == nullptr) {
        std::fprintf(stderr, kConfirmFormat, question);
        std::fputs(kConfirmChoices, stderr);
        std::fputs(kConfirmAsk, stderr);
        int answer = 0;
        readAnswer(answer);
        std::fputs("\n", stderr);
        return answer == 1;
    }
    std::fprintf(stderr, kPromptFormat, question);
    std::fputs(kPromptQuestion, stderr);
    std::fputs(kPromptChoices, stderr);
    int answer = 0;
    readAnswer(answer);
    if (answer != 1) return false;
    std::fputs(kPromptNewName, stderr);
    std::fflush(stderr);
    // One word, bounded by the answer buffer.
    char word[256];
    const bool given = std::scanf("%255s", word) == 1;
    std::fputs("\n", stderr);
    if (given) *name = word;
    return given;
}

znReportScope::znReportScope(znReportContext& context) : previous(currentContext) { currentContext = &context; }

znReportScope::~znReportScope() { currentContext = previous; }

znReportPosition::znReportPosition(const std::string& file, const int& line)
    : context(znReports()), previousFile(context.file), previousLine(context.line) {
    context.file = &file;
    context.line = &line;
}

znReportPosition::~znReportPosition() {
    context.file = previousFile;
    context.line = previousLine;
}

void znMessage(const char* text) { send(znReportKind::message, text); }

void znAlert(const char* text) { send(znReportKind::alert, text); }

void znInform(const char* text) { send(znReportKind::info, text); }

int znConfirm(const char* text) {
    send(znReportKind::question, text);
    return znReports().answer(text != nullptr ? text : "", nullptr) ? 1 : 0;
}

znPromptAnswer znPrompt(const char* text) {
    znPromptAnswer result;
    std::memset(&result, 0, sizeof result);
    send(znReportKind::question, text);
    std::string name;
    if (znReports().answer(text != nullptr ? text : "", &name)) {
        std::snprintf(result.name, sizeof result.name, "%s", name.c_str());
        result.answered = 1;
    }
    return result;
}

void znSyntaxError(const char* file, int line, const char* message, const char* text) {
    znReportContext& context = znReports();
    context.lastError = {file != nullptr ? file : "", message != nullptr ? message : "", text != nullptr ? text : "",
                         line};
    context.hasError = true;
}

void znParseFailed() {
    znReportContext& context = znReports();
    if (context.parseFailed) return;
    context.parseFailed = true;
    context.parseError = context.lastError;
}
