// Choosing an interface from a URL list: inline scripts, extensions, the
// exec step and the warning.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "behaviour_world.h"
#include "scripts/script_messages.h"
#include "scripts/zn_scriptinterface.h"
#include "test_support.h"

using wrltest::BehaviourWorld;

namespace {

// Records what the table hands to the interface factory.
struct Made {
    std::vector<std::string> files;
} made;

class NullInterface : public znScriptInterface {
public:
    using znScriptInterface::znScriptInterface;
};

znScriptInterface* recordingFactory(const char* file, znNodeType& type, znNodeConstFn) {
    made.files.push_back(file);
    return new NullInterface(type);
}

char compiledName[64] = "/compiled/out.so";
char* compile(znBrowser*, char*) { return compiledName; }
char* refuse(znBrowser*, char*) { return nullptr; }

std::string warning(const std::string& what) {
    char text[512];
    std::snprintf(text, sizeof text, kScriptInterfaceWarning, what.c_str(), what.c_str());
    return text;
}

class NewInterface : public ::testing::Test {
protected:
    void SetUp() override {
        made.files.clear();
        world.system.scriptInterfaces->add(recordingFactory, "rec", nullptr, "rec:", nullptr, nullptr, 1);
    }
    // Tries `urls` for a fresh type and answers what went to the error stream.
    std::string choose(std::vector<const char*> urls, znScriptInterface** out = nullptr) {
        znNodeType& type = world.makeType("Thing", {});
        testing::internal::CaptureStderr();
        znScriptInterface* chosen = znScriptInterface::newInterface(urls, type);
        std::string err = testing::internal::GetCapturedStderr();
        if (out) *out = chosen; else delete chosen;
        return err;
    }
    BehaviourWorld world;
};

}  // namespace

TEST_F(NewInterface, BadPrefixWarnsOnceInItsExactWordsAndTheNextURLServes) {
    znScriptInterface* chosen = nullptr;
    std::string err = choose({"javascript:alert(1)", "behaviour.rec"}, &chosen);
    EXPECT_EQ(err, "\nAlert:  \n\nSCRIPT INTERFACE WARNING:\n   \"javascript:\" inline script prefix not registered.  \n"
                   "   When running this again you can try commenting\n   nodes with a \"javascript:\" script "
                   "prefix.\n\n\n");
    ASSERT_NE(chosen, nullptr);
    EXPECT_EQ(made.files, std::vector<std::string>{"behaviour.rec"});
    delete chosen;
}

TEST_F(NewInterface, NameDecidesTheInterfaceByItsPrefixOrLastDot) {
    choose({"  \t behaviour.rec"});  // leading blanks are dropped
    EXPECT_EQ(made.files, std::vector<std::string>{"behaviour.rec"});
    EXPECT_NE(choose({"C:\\scripts\\a.rec"}).find(warning("C:")), std::string::npos);  // a drive is inline
    EXPECT_NE(choose({"archive.rec.tar"}).find(warning(".tar")), std::string::npos);
    choose({"archive.tar.rec"});
    EXPECT_EQ(made.files, (std::vector<std::string>{"behaviour.rec", "archive.tar.rec"}));
    // No dot or no text: skipped silently.
    znScriptInterface* chosen = nullptr;
    EXPECT_EQ(choose({"", "NOT_SUPPORTED", nullptr}, &chosen), "");
    EXPECT_EQ(chosen, nullptr);
    // An overlong name is reported and skipped.
    std::string longName(znScriptInterface::kFileNameSize + 10, 'a');
    longName += ".rec";
    std::string err = choose({longName.c_str(), "short.rec"});
    EXPECT_NE(err.find("Script URL longer than 1023 characters skipped"), std::string::npos) << err;
    EXPECT_EQ(made.files.back(), "short.rec");
}

TEST_F(NewInterface, InlineScriptGoesToAFreshFileInTheTemporaryDirectory) {
    wrltest::TempDir dir;
    wrltest::ScopedEnv tmp("ZN_TMP_PATH", dir.path().c_str());
    choose({"rec:counter script text"});
    ASSERT_EQ(made.files.size(), 1u);
    const std::string& file = made.files[0];
    EXPECT_EQ(file.rfind(dir.path() + "/.zncache", 0), 0u) << file;
    EXPECT_EQ(file.size(), dir.path().size() + std::string("/.zncache").size() + 2 + 6);
    EXPECT_EQ(wrltest::readFile(file), "counter script text");
    choose({"rec:second"});
    ASSERT_EQ(made.files.size(), 2u);
    EXPECT_NE(made.files[1], made.files[0]);
}

TEST_F(NewInterface, ExecStepReplacesTheFileNameOrFailsOnToTheNextURL) {
    world.system.scriptInterfaces->add(recordingFactory, "src", nullptr, nullptr, compile, nullptr, 1);
    world.system.scriptInterfaces->add(recordingFactory, "bad", nullptr, nullptr, refuse, nullptr, 1);
    choose({"program.src"});
    choose({"program.bad", "second.rec"});
    EXPECT_EQ(made.files, (std::vector<std::string>{"/compiled/out.so", "second.rec"}));
}

TEST_F(NewInterface, RemoteURLsAndRelativeNamesInRemoteWorldsGoThroughTheURLInterface) {
    wrltest::AskedURL access("/cache/fetched.rec");
    zn_URL* previous = world.system.browser->getURLInterface();
    world.system.browser->setURLInterface(&access);
    choose({"http://example.invalid/s.rec"});
    EXPECT_EQ(access.asked, "http://example.invalid/s.rec");
    EXPECT_EQ(access.pushed, 0);
    choose({" HTTPS://example.invalid/t.rec"});
    EXPECT_EQ(access.asked, "HTTPS://example.invalid/t.rec");
    // A relative name is the world's business only when the world is remote.
    access.asked.clear();
    access.top = "/worlds/";
    choose({"local.rec"});
    EXPECT_EQ(access.asked, "");
    access.top = "http://example.invalid/worlds/";
    choose({"", "beside.rec"});
    EXPECT_EQ(access.asked, "beside.rec");
    EXPECT_EQ(made.files,
              (std::vector<std::string>{"/cache/fetched.rec", "/cache/fetched.rec", "local.rec", "/cache/fetched.rec"}));
    world.system.browser->setURLInterface(previous);
}

TEST(SaveScript, WritesTheTextAndReportsFailure) {
    wrltest::TempDir dir;
    std::string file = dir.path() + "/s.txt";
    EXPECT_EQ(znScriptInterface::saveScript(file.c_str(), "abc"), 0);
    EXPECT_EQ(wrltest::readFile(file), "abc");
    EXPECT_EQ(znScriptInterface::saveScript((dir.path() + "/missing/dir/x").c_str(), "abc"), -1);
    EXPECT_EQ(znScriptInterface::saveScript(file.c_str(), ""), -1);
}
