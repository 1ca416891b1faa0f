#include "base/zn_app_interfaces.h"

int znAppInterfaces::add(znAppInterface* p) {
    if (p == nullptr) return 0;
    all.push_back(p);
    if (!byType.emplace(p->getType(), p).second) return 0;
    return byClass.emplace(p->getClass(), p).second ? 1 : 0;
}

znAppInterface* znAppInterfaces::getTypeInterface(const char* type) {
    if (type == nullptr) return nullptr;
    auto it = byType.find(type);
    return it == byType.end() ? nullptr : it->second;
}

znAppInterface* znAppInterfaces::getClassInterface(const char* className) {
    if (className == nullptr) return nullptr;
    auto it = byClass.find(className);
    return it == byClass.end() ? nullptr : it->second;
}

void znAppInterfaces::preProcess() {
    for (znAppInterface* p : all) p->preProcess();
}

void znAppInterfaces::process() {
    for (znAppInterface* p : all) p->process();
}

void znAppInterfaces::postProcess() {
    for (znAppInterface* p : all) p->postProcess();
}
