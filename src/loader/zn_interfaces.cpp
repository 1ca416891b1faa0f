#include "loader/zn_interfaces.h"

#include <unistd.h>

znHostReports::znHostReports(const wrlLoadOptions& o) : options(o) { questionsAllowed = o.questions; }

void znHostReports::report(const znReport& r) {
    if (options.report == nullptr) {
        znReportContext::report(r);
        return;
    }
    const wrlReport out{static_cast<wrlReportKind>(r.kind), r.text, r.file, r.line};
    options.report(&out, options.reportData);
}

bool znHostReports::answer(const char* question, std::string* name) {
    if (options.answer != nullptr) {
        char given[256] = "";
        const bool yes =
            options.answer(question, name != nullptr ? given : nullptr, sizeof given, options.answerData) != 0;
        given[sizeof given - 1] = '\0';
        if (yes && name != nullptr) *name = given;
        return yes && (name == nullptr || given[0] != '\0');
    }
    // A host that takes the reports has the question among them: no
    // console text is written for it.
    if (options.report != nullptr && (!questionsAllowed || !isatty(STDIN_FILENO))) return false;
    return znReportContext::answer(question, name);
}
