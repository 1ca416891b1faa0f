#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/zn_app_interfaces.h"
#include "base/zn_reports.h"
#include "test_support.h"

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

class RecordingInterface : public znAppInterface {
public:
    RecordingInterface(std::string cls, std::string type, std::vector<std::string>* log)
        : cls_(std::move(cls)), type_(std::move(type)), log_(log) {}
    const char* getClass() override { return cls_.c_str(); }
    const char* getType() override { return type_.c_str(); }
    void preProcess() override { log_->push_back("pre " + type_); }
    void process() override { log_->push_back("process " + type_); }
    void postProcess() override { log_->push_back("post " + type_); }

private:
    std::string cls_, type_;
    std::vector<std::string>* log_;
};

}  // namespace

TEST(znAppInterfaces, FirstOfATypeOrClassWinsButEveryOneIsCalledEachFrame) {
    std::vector<std::string> log;
    RecordingInterface a("gfx", "same", &log), b("ui", "same", &log), c("gfx", "other", &log);
    znAppInterfaces table;
    EXPECT_EQ(table.add(&a), 1);
    EXPECT_EQ(table.add(&b), 0);
    EXPECT_EQ(table.add(&c), 0);
    EXPECT_EQ(table.add(nullptr), 0);
    EXPECT_EQ(table.getTypeInterface("same"), &a);
    EXPECT_EQ(table.getTypeInterface("other"), &c);
    EXPECT_EQ(table.getClassInterface("gfx"), &a);
    EXPECT_EQ(table.getClassInterface("ui"), nullptr);  // never entered by class
    EXPECT_EQ(table.getTypeInterface("absent"), nullptr);
    table.preProcess();
    table.process();
    table.postProcess();
    EXPECT_EQ(log.size(), 9u);
    EXPECT_EQ(log[1], "pre same");
    EXPECT_EQ(log[8], "post other");
}

TEST(ConsoleReports, MessageAlertAndConfirmTexts) {
    CaptureStderr();
    znMessage("hello");
    znAlert("careful");
    EXPECT_EQ(GetCapturedStderr(), "\nMessage:  hello\n\nAlert:  careful\n");
    const std::pair<const char*, int> cases[] = {{"1\n", 1}, {"2\n", 0}, {"yes\n", 0}, {"", 0}};
    for (const auto& [input, expected] : cases) {
        SCOPED_TRACE(input);
        wrltest::ScopedTerminalInput in(input);
        if (!in.ok()) GTEST_SKIP() << "no terminal to lend";
        EXPECT_EQ(wrltest::stderrOf([&] { EXPECT_EQ(znConfirm("Go on?"), expected); }),
                  "\nConfirm:  Go on?\n1)Yes    2)No\n? \n");
    }
}

TEST(ConsoleReports, PromptReadsABoundedNameAndDoesNotHangAtTheEnd) {
    znPromptAnswer answer;
    {
        wrltest::ScopedTerminalInput in("1\nBetterName rest\n");
        if (!in.ok()) GTEST_SKIP() << "no terminal to lend";
        CaptureStderr();
        answer = znPrompt("Unknown node");
        EXPECT_EQ(GetCapturedStderr(),
                  "\nPrompt:  Unknown node\nDo you wish to provide a different name?\n1)Yes  2)No\n: New Name: \n");
    }
    EXPECT_EQ(answer.answered, 1);
    EXPECT_STREQ(answer.name, "BetterName");
    for (const std::string& input : {std::string(""), "1\n" + std::string(1000, 'n') + "\n"}) {
        wrltest::ScopedTerminalInput more(input);
        wrltest::stderrOf([&] { answer = znPrompt("Unknown node"); });
        EXPECT_EQ(answer.answered, input.empty() ? 0 : 1);
        if (!input.empty()) {
            EXPECT_EQ(std::string(answer.name), std::string(255, 'n'));
        }
    }
}

// Standard input that is no terminal is never read, and a host may forbid
// questions altogether: the default answer is taken, and said.
TEST(ConsoleReports, QuestionsAreNotPutWithoutATerminalOrWhenForbidden) {
    {
        wrltest::ScopedStdin piped("1\nName\n");
        EXPECT_EQ(wrltest::stderrOf([] { EXPECT_EQ(znConfirm("Go on?"), 0); }),
                  "\nConfirm:  Go on?\nNot asked: the answer is No.\n");
        EXPECT_EQ(wrltest::stderrOf([] { EXPECT_EQ(znPrompt("Unknown node").answered, 0); }),
                  "\nPrompt:  Unknown node\nNot asked: no other name is given.\n");
        // What was fed is still there for the host.
        char line[16] = "";
        ASSERT_NE(std::fgets(line, sizeof line, stdin), nullptr);
        EXPECT_STREQ(line, "1\n");
    }
    wrltest::ScopedTerminalInput terminal("1\n");
    if (!terminal.ok()) GTEST_SKIP() << "no terminal to lend";
    znReportContext noQuestions;
    noQuestions.questionsAllowed = false;
    znReportScope scope(noQuestions);
    wrltest::stderrOf([] { EXPECT_EQ(znConfirm("Go on?"), 0); });
    EXPECT_EQ(noQuestions.counts[static_cast<int>(znReportKind::question)], 1);
}
