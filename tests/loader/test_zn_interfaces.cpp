#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "loader/zn_interfaces.h"
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

TEST(znAppInterfaces, SecondOfOneTypeIsRefusedButStillCalledEachFrame) {
    std::vector<std::string> log;
    RecordingInterface a("gfx", "same", &log), b("ui", "same", &log);
    znAppInterfaces table;
    EXPECT_EQ(table.add(&a), 1);
    EXPECT_EQ(table.add(&b), 0);
    EXPECT_EQ(table.getTypeInterface("same"), &a);
    EXPECT_EQ(table.getClassInterface("ui"), nullptr);  // never entered byClass
    table.preProcess();
    table.process();
    table.postProcess();
    EXPECT_EQ(log, (std::vector<std::string>{"pre same", "pre same", "process same", "process same",
                                             "post same", "post same"}));
}

TEST(znAppInterfaces, FirstOfOneClassWins) {
    std::vector<std::string> log;
    RecordingInterface a("gfx", "gfx_a", &log), b("gfx", "gfx_b", &log);
    znAppInterfaces table;
    EXPECT_EQ(table.add(&a), 1);
    EXPECT_EQ(table.add(&b), 0);
    EXPECT_EQ(table.getClassInterface("gfx"), &a);
    EXPECT_EQ(table.getTypeInterface("gfx_b"), &b);
    EXPECT_EQ(table.add(nullptr), 0);
    EXPECT_EQ(table.getTypeInterface("absent"), nullptr);
}

TEST(ConsoleReports, MessageAndAlertTexts) {
    CaptureStderr();
    znMessage("hello");
    znAlert("careful");
    EXPECT_EQ(GetCapturedStderr(), "\nMessage:  hello\n\nAlert:  careful\n");
}

TEST(ConsoleReports, ConfirmAnswers) {
    struct Case {
        const char* input;
        int expected;
    } cases[] = {{"1\n", 1}, {"2\n", 0}, {"yes\n", 0}, {"", 0}};
    for (const Case& c : cases) {
        wrltest::ScopedStdin in(c.input);
        CaptureStderr();
        int answer = znConfirm("Go on?");
        std::string err = GetCapturedStderr();
        EXPECT_EQ(answer, c.expected) << "input: " << c.input;
        EXPECT_EQ(err, "\nConfirm:  Go on?\n1)Yes    2)No\n? \n") << "input: " << c.input;
    }
}

TEST(ConsoleReports, PromptReadsANewName) {
    wrltest::ScopedStdin in("1\nBetterName rest\n");
    CaptureStderr();
    znPromptAnswer answer = znPrompt("Unknown node");
    std::string err = GetCapturedStderr();
    EXPECT_EQ(answer.answered, 1);
    EXPECT_STREQ(answer.name, "BetterName");
    EXPECT_EQ(err,
              "\nPrompt:  Unknown node\nDo you wish to provide a different name?\n1)Yes  2)No\n: New Name: \n");
}

TEST(ConsoleReports, PromptAtEndOfInputDoesNotHang) {
    wrltest::ScopedStdin in("");
    CaptureStderr();
    znPromptAnswer answer = znPrompt("Unknown node");
    GetCapturedStderr();
    EXPECT_EQ(answer.answered, 0);
}

TEST(ConsoleReports, PromptNameIsBoundedByItsBuffer) {
    wrltest::ScopedStdin in("1\n" + std::string(1000, 'n') + "\n");
    CaptureStderr();
    znPromptAnswer answer = znPrompt("Unknown node");
    GetCapturedStderr();
    EXPECT_EQ(answer.answered, 1);
    EXPECT_EQ(std::string(answer.name), std::string(255, 'n'));
}
