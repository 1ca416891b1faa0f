// The loader's side of its host: the reports and questions of a load go
// where the host's options send them.
#ifndef ZN_INTERFACES_H
#define ZN_INTERFACES_H

#include <string>

#include "base/zn_app_interfaces.h"
#include "base/zn_reports.h"
#include "wrlLoader.h"

// The report context of one load. Without a report callback the reports
// go to standard error; without an answer callback questions go to a
// terminal, when the options allow them.
class znHostReports : public znReportContext {
public:
    explicit znHostReports(const wrlLoadOptions& options);
    void report(const znReport& report) override;
    bool answer(const char* question, std::string* name) override;

private:
    const wrlLoadOptions& options;
};

#endif
