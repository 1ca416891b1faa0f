// Costs of behaviour binding: finding a built-in class for a new node type,
// and delivering one event to a built-in node.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "browser/zn_browser_intern.h"
#include "fields/zn_values.h"
#include "loader/zn.h"
#include "nodes/zn_node.h"
#include "nodes/zn_nodetype.h"
#include "scripts/zn_cppsi.h"
#include "scripts/zn_event.h"
#include "scripts/zn_scriptinterfaces.h"

namespace {

ZN& system() {
    static ZN* made = [] {
        auto* zn = new ZN(0);
        zn->browser->registerZNType(1);
        zn->scriptInterfaces->add(newZnCPPSI, "so", nullptr, nullptr, nullptr, nullptr, 1);
        return zn;
    }();
    return *made;
}

class OneEvent : public Event {
public:
    OneEvent(const char* n, ConstField& v) : name(n), value(&v) {}
    const char* getName() override { return name; }
    double getTimeStamp() override { return 0.0; }
    ConstField* getValue() override { return value; }
    Event* clone() override { return new OneEvent(*this); }

private:
    const char* name;   // borrowed
    ConstField* value;  // borrowed
};

void BM_BindBuiltinType(benchmark::State& state) {
    std::vector<const char*> urls{"STATIC_BUILTIN.so"};
    for (auto _ : state) {
        znNodeType type(1, "Transform", urls, system().browser, 0, 0, nullptr);
        benchmark::DoNotOptimize(type.getInterface());
    }
}
BENCHMARK(BM_BindBuiltinType);

void BM_MaterialEvent(benchmark::State& state) {
    std::vector<const char*> urls{"STATIC_BUILTIN.so"};
    auto* type = new znNodeType(2, "Material", urls, system().browser, 0, 0, nullptr);
    FieldFlags exposed;
    exposed.bits = FieldFlags::kExposed;
    type->addData("shininess", SFFloatType, field, exposed, nullptr);
    auto* node = new znNode(2, "d00002+M", type, system().browser);
    node->addData("shininess", SFFloatType, field, exposed, static_cast<const char*>(nullptr));
    node->initialize();
    SFFloat value;
    value.setValue(0.5f);
    OneEvent event("set_shininess", value);
    for (auto _ : state) node->processEvent(event);
}
BENCHMARK(BM_MaterialEvent);

}  // namespace
