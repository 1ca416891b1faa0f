#include "browser/zn_sim_manager.h"

#include <algorithm>
#include <cstdio>

#include "browser/browser_messages.h"
#include "browser/zn_browser_intern.h"
#include "fields/zn_exception.h"
#include "fields/zn_values.h"
#include "base/zn_reports.h"
#include "nodes/zn_node.h"

znSimManager_default::znSimManager_default(znBrowserIntern* b) : index(0), browser(b) {}

int znSimManager_default::iterateEvents(znEventFunction, double time) {
    // With no cascade, the only work is the tick of the top-level list,
    // which the browser asks for with a negative time.
    if (time < 0.0) {
        for (size_t i = 0; i < topNodes.size(); ++i) {
            SFTime now(browser->getTime());
            topNodes[i]->action(now, 2, nullptr);
        }
    }
    return 1;
}

namespace {
znNode* nodeOrReport(znBrowserIntern* browser, int id, const char* format) {
    try {
        return browser->getNode(id);
    } catch (znInvalidNodeIDException&) {
        char message[256];
        std::snprintf(message, sizeof message, format, id);
        znAlert(message);
        return nullptr;
    }
}
}  // namespace

void znSimManager_default::postSensor(int id) {
    znNode* node = nodeOrReport(browser, id, kCouldNotPostSensor);
    // Sensors had their own action when they were initialised; the tick is
    // for the rest.
    if (node && !node->isSensor()) topNodes.push_back(node);
}

void znSimManager_default::removeSensor(int id) {
    znNode* node = nodeOrReport(browser, id, kCouldNotRemoveSensor);
    if (!node) return;
    auto found = std::find(topNodes.begin(), topNodes.end(), node);
    if (found != topNodes.end()) topNodes.erase(found);
}
