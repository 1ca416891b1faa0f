// The Node Support file read into the browser's types, and the database's
// reading of world files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "database/zn_database_intern.h"
#include "fields/zn_values.h"
#include "loader/zn.h"
#include "scripts/zn_cppsi.h"
#include "scripts/zn_scriptinterfaces.h"
#include "fields/zn_exception.h"
#include "nodes/zn_nodetype.h"
#include "parser/zn_parser.h"
#include "test_support.h"
#include "url/zn_URL_default.h"

using testing::HasSubstr;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

// A browser of the loader's kind with no system object around it.
class LoaderBrowser : public znBrowserIntern {
public:
    LoaderBrowser() : znBrowserIntern(nullptr) { registerZNType(1); }
};

znDatabaseIntern& databaseOf(znBrowserIntern& browser) {
    return *dynamic_cast<znDatabaseIntern*>(browser.getDatabase());
}

// Every type the browser holds, by name.
std::vector<znNodeType*> allTypes(znBrowserIntern& browser, int upTo) {
    std::vector<znNodeType*> out;
    for (int id = 1; id <= upTo; ++id) {
        try {
            out.push_back(browser.getType(id));
        } catch (znInvalidNodeTypeIDException&) {
        }
    }
    return out;
}

znNodeType* typeNamed(znBrowserIntern& browser, const char* name) {
    for (znNodeType* t : allTypes(browser, 200))
        if (std::strcmp(t->getType(), name) == 0) return t;
    return nullptr;
}

// A system object set up as the loader sets it up, with the Node Support
// file read: the one ZNBUILTINS names, or with the variable unset the one
// the library finds itself.
struct Loaded {
    ZN system{0};
    znBrowserIntern& browser;
    std::string errors;
    explicit Loaded(bool byVariable = true) : browser(*system.browser) {
        system.scriptInterfaces->add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
        browser.registerZNType(1);
        const std::string file = wrltest::nodeSupportFile();
        wrltest::ScopedEnv builtins("ZNBUILTINS", byVariable ? file.c_str() : nullptr);
        errors = wrltest::stderrOf([&] { browser.init(); });
    }
    ~Loaded() { znReleaseParts(system); }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;
};

}  // namespace

TEST(NodeSupportFile, EveryDeclaredTypeBecomesASystemTypeWithItsDeclaredDefaults) {
    Loaded loaded;
    EXPECT_EQ(loaded.errors, "");
    std::vector<znNodeType*> types = allTypes(loaded.browser, 200);
    EXPECT_EQ(types.size(), 54u);
    EXPECT_EQ(databaseOf(loaded.browser).getSystemTypeCount(), 54);
    for (znNodeType* t : types) EXPECT_EQ(t->getSystemProto(), 1) << t->getType();

    float scale[3] = {0, 0, 0}, colour[3] = {0, 0, 0};
    dynamic_cast<SFVec3f*>(typeNamed(loaded.browser, "Transform")->getData("scale"))->getValue(scale);
    dynamic_cast<SFColor*>(typeNamed(loaded.browser, "Material")->getData("diffuseColor"))->getValue(colour);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(scale[i], 1.0f);
        EXPECT_FLOAT_EQ(colour[i], 0.8f);
    }
    // ZNurl and ZNgrouping shape the type and are not kept as fields.
    znNodeType* group = typeNamed(loaded.browser, "Group");
    EXPECT_EQ(group->getDataID("ZNurl"), -1);
    EXPECT_EQ(group->getDataID("ZNgrouping"), -1);
    EXPECT_NE(group->getDataID("set_children"), -1);
    EXPECT_EQ(typeNamed(loaded.browser, "TouchSensor")->isSensor(), 1);
    EXPECT_EQ(group->isSensor(), 0);
}

TEST(NodeSupportFile, UnreadableFileIsReported) {
    LoaderBrowser browser;
    wrltest::TempDir dir;
    wrltest::ScopedEnv builtins("ZNBUILTINS", (dir.path() + "/none.wrl").c_str());
    CaptureStderr();
    const int result = databaseOf(browser).ParseSystem(nullptr);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(GetCapturedStderr(),
              "\nAlert:  \nCould not open Node Support file.\nCheck the ZNBUILTINS environment variable.\n\n");
}

// The build lays the file out beside the library as the install does, so
// this finds the copy in the build tree.
TEST(NodeSupportFile, WithoutTheVariableTheFileBesideTheLibraryIsRead) {
    Loaded loaded(false);
    EXPECT_EQ(loaded.errors, "");
    EXPECT_EQ(databaseOf(loaded.browser).getSystemTypeCount(), 54);
    EXPECT_NE(typeNamed(loaded.browser, "Transform"), nullptr);
}

TEST(NodeSupportFile, HostedLoaderSearchesThePathListInPlace) {
    wrltest::TempDir a;
    wrltest::TempDir b;
    b.write(".perfLoader.wrl", "");
    std::string list = a.path() + ":" + b.path();
    std::vector<char> writable(list.begin(), list.end());
    writable.push_back('\0');
    const char* found = getPerfPath(writable.data());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(std::string(found), b.path() + "/.perfLoader.wrl");
    // The list's colon has become its end.
    EXPECT_EQ(std::string(writable.data()), a.path());
    std::string none = a.path();
    std::vector<char> single(none.begin(), none.end());
    single.push_back('\0');
    EXPECT_EQ(getPerfPath(single.data()), nullptr);
}

TEST(WorldFiles, SyntaxErrorReportsThenGivesUpTheFile) {
    Loaded loaded;
    wrltest::TempDir dir;
    const std::string path = dir.write("bad.wrl", "#VRML V2.0 utf8\nGroup { children [ Box { } ] \n");
    zn_URL_default url;
    loaded.browser.setURLInterface(&url);
    znDatabaseIntern& db = databaseOf(loaded.browser);
    db.getParser()->InitParser(znParser::kOutput, &url);
    std::vector<const char*> urls{path.c_str()};
    CaptureStderr();
    const char* read = db.LoadURL(urls);
    const std::string errors = GetCapturedStderr();
    EXPECT_EQ(read, urls[0]);
    const std::size_t error = errors.find("\nAlert:  Error in " + path + " near line 3: parse error\n");
    const std::size_t gaveUp = errors.find("\nAlert:  Unable to parse file.\n");
    const std::size_t done = errors.find("\nMessage:  Done loading URL:  bad.wrl\n");
    ASSERT_NE(error, std::string::npos) << errors;
    ASSERT_NE(gaveUp, std::string::npos) << errors;
    ASSERT_NE(done, std::string::npos) << errors;
    EXPECT_LT(error, gaveUp);
    EXPECT_LT(gaveUp, done);
}

TEST(WorldFiles, OnlyTheFirstUrlIsTried) {
    LoaderBrowser browser;
    zn_URL_default url;
    znDatabaseIntern& db = databaseOf(browser);
    wrltest::ScopedEnv builtins("ZNBUILTINS", nullptr);
    CaptureStderr();
    db.getParser()->InitParser(0, &url);
    wrltest::TempDir dir;
    const std::string good = dir.write("good.wrl", "#VRML V2.0 utf8\n");
    std::vector<const char*> urls{"/nonexistent/a.wrl", good.c_str(), good.c_str()};
    EXPECT_EQ(db.LoadURL(urls), nullptr);
    std::vector<const char*> empty;
    EXPECT_EQ(db.LoadURL(empty), nullptr);
    const std::string errors = GetCapturedStderr();
    EXPECT_THAT(errors, HasSubstr("\nAlert:  Could not open URL:  /nonexistent/a.wrl.\n\n"));
    EXPECT_EQ(errors.find("good.wrl"), std::string::npos);
}

TEST(WorldFiles, ScriptNodeTypeIsNoSystemType) {
    Loaded loaded;
    wrltest::TempDir dir;
    const std::string path = dir.write("s.wrl", "#VRML V2.0 utf8\nDEF S Script { field SFInt32 a 1 }\n");
    zn_URL_default url;
    znDatabaseIntern& db = databaseOf(loaded.browser);
    db.getParser()->InitParser(znParser::kOutput, &url);
    std::vector<const char*> urls{path.c_str()};
    wrltest::stderrOf([&] { db.LoadURL(urls); });
    znNodeType* script = typeNamed(loaded.browser, "Script_d00000+S");
    ASSERT_NE(script, nullptr);
    EXPECT_EQ(script->getSystemProto(), 0);
    EXPECT_NE(script->getDataID("a"), -1);
    EXPECT_STREQ(db.getProto(const_cast<char*>("d00000+S")), "Script_d00000+S");
}

TEST(Records, LongNamesAreKeptAndAnEmptyInterfaceHasNoFields) {
    LoaderBrowser browser;
    znDatabaseIntern& db = databaseOf(browser);
    std::string name(500, 'p');
    char* parents[1] = {nullptr};
    EXPECT_EQ(db.CreatePrototype(&name[0], parents, nullptr, 0, 0, nullptr, nullptr), 1);
    std::string field(300, 'f');
    EXPECT_EQ(db.SetPrototypeData(nullptr, &field[0], nullptr, 22, 0, FieldFlags{}), 1);
    EXPECT_EQ(db.EndPrototype(), 1);
    znNodeType* named = typeNamed(browser, name.c_str());
    ASSERT_NE(named, nullptr);
    EXPECT_EQ(named->getDataID(field.c_str()), 0);

    char empty[] = "Empty";
    CaptureStderr();
    EXPECT_EQ(db.CreatePrototype(empty, parents, nullptr, 0, 0, nullptr, nullptr), 1);
    EXPECT_EQ(db.EndPrototype(), 1);
    EXPECT_THAT(GetCapturedStderr(), HasSubstr("\nMessage:  Field list is NULL!\n"));
    znNodeType* type = typeNamed(browser, "Empty");
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->getFieldCount(), 0);
    EXPECT_EQ(type->getSystemProto(), 0);
}
