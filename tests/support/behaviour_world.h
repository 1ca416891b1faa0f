// A small world for tests of behaviour bindings: a system object with the
// compiled-script language, and node types and nodes made by hand.
#ifndef WRL_BEHAVIOUR_WORLD_H
#define WRL_BEHAVIOUR_WORLD_H

#include <dlfcn.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "scripts/zn_cppsi.h"
#include "scripts/zn_event.h"
#include "scripts/zn_scriptinterfaces.h"
#include "test_support.h"
#include "url/zn_URL.h"

namespace wrltest {

struct FieldDecl {
    std::string name;
    FieldType type;
    DataType kind;
    bool exposed;
};

class BehaviourWorld {
public:
    explicit BehaviourWorld(int mode = 1) : system(0) {
        system.browser->registerZNType(mode);
        system.scriptInterfaces->add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
    }
    // The nodes know their types, and both the browser.
    ~BehaviourWorld() {
        nodes.clear();
        types.clear();
        znReleaseParts(system);
    }
    BehaviourWorld(const BehaviourWorld&) = delete;
    BehaviourWorld& operator=(const BehaviourWorld&) = delete;

    // A type whose implementation is tried from `urls`; owned by the world.
    znNodeType& makeType(const char* name, std::vector<const char*> urls,
                         const std::vector<FieldDecl>& fields = {}, char* initFn = nullptr) {
        types.push_back(std::make_unique<znNodeType>(static_cast<int>(types.size()) + 1, name, urls,
                                                     system.browser, 0, 0, initFn));
        znNodeType& type = *types.back();
        for (const FieldDecl& f : fields) {
            FieldFlags flags;
            if (f.exposed) flags.bits |= FieldFlags::kExposed;
            type.addData(f.name.c_str(), f.type, f.kind, flags, nullptr);
        }
        fieldsOf.emplace_back(&type, fields);
        return type;
    }

    // A node of `type` with the type's fields; owned by the world.
    znNode* makeNode(znNodeType& type, const char* name = "d00001+N") {
        auto* node = nodes.emplace_back(std::make_unique<znNode>(++lastNodeID, name, &type, system.browser)).get();
        for (auto& entry : fieldsOf)
            if (entry.first == &type)
                for (const FieldDecl& f : entry.second) {
                    FieldFlags flags;
                    if (f.exposed) flags.bits |= FieldFlags::kExposed;
                    node->addData(f.name.c_str(), f.type, f.kind, flags, static_cast<const char*>(nullptr));
                }
        return node;
    }

    ZN system;
    std::vector<std::unique_ptr<znNodeType>> types;
    std::vector<std::unique_ptr<znNode>> nodes;
    std::vector<std::pair<znNodeType*, std::vector<FieldDecl>>> fieldsOf;
    int lastNodeID = 0;
};

// An event as the browser would deliver it.
class TestEvent : public Event {
public:
    TestEvent(std::string n, ConstField& v, double t = 1.5) : name(std::move(n)), value(&v), time(t) {}
    const char* getName() override { return name.c_str(); }
    double getTimeStamp() override { return time; }
    ConstField* getValue() override { return value; }
    Event* clone() override { return new TestEvent(*this); }

private:
    std::string name;
    ConstField* value;  // borrowed
    double time;
};

// A URL interface that answers one fixed local name and remembers the
// question.
class AskedURL : public zn_URL {
public:
    explicit AskedURL(const char* answer) : answer(answer) {}
    FILE* fopenURL(const char*, int) override { return nullptr; }
    std::ifstream* iopenURL(const char*, int) override { return nullptr; }
    const char* getURL(const char* url, int push) override {
        asked = url;
        pushed = push;
        return answer;
    }
    int fcloseURL(FILE*, int) override { return 0; }
    int icloseURL(std::ifstream*, int) override { return 0; }
    const char* get_path() override { return top; }

    const char* answer;         // borrowed
    const char* top = nullptr;  // the directory of the file being read; borrowed
    std::string asked;
    int pushed = -1;
};

// A read-out of the test's compiled Script (counter.so), found once the
// object is loaded.
template <class F>
F counterFn(const char* name) {
    return reinterpret_cast<F>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace wrltest

#endif
