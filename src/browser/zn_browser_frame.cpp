// The frame: a pending load, the manager's cascade and tick, and the end of
// event processing for the nodes that received events.
#include <sys/time.h>

#include <map>
#include <utility>

#include "browser/browser_messages.h"
#include "browser/zn_browser_event.h"
#include "browser/zn_browser_intern.h"
#include "browser/zn_sim_manager.h"
#include "fields/zn_values.h"
#include "base/zn_app_interfaces.h"
#include "base/zn_reports.h"
#include "nodes/zn_node.h"

void znBrowserIntern::executeFrame(double time) {
    currentTime = time;
    if (urlPending) loadURL();
    if (worldLoaded) {
        // The regular cascade first, then the tick of the top-level list.
        simManager->iterateEvents(eventFun, 0.0);
        simManager->iterateEvents(eventFun, -1.0);
    }
    // Taken out first: a node told here may post again for the next frame.
    std::map<int, znNode*> processed = std::move(eventsProcessedMap);
    eventsProcessedMap.clear();
    for (auto& entry : processed) entry.second->eventsProcessed();
}

void znBrowserIntern::executeLoop() {
    timeval startTime{};
    double lastTime = 0.0;
    znAppInterfaces* applications = appInterfaces;
    for (;;) {
        if (applications) applications->preProcess();
        if (clockStarted) {
            timeval now{};
            gettimeofday(&now, nullptr);
            currentTime = static_cast<double>(now.tv_sec - startTime.tv_sec) +
                          static_cast<double>(now.tv_usec - startTime.tv_usec) / 1000000.0;
        }
        if (applications) applications->process();
        if (worldLoaded) {
            frameRate = 1.0 / (currentTime - lastTime);
            double frameTime = currentTime;
            executeFrame(frameTime);
            lastTime = frameTime;
        }
        if (applications) applications->postProcess();
        // The clock starts at the end of the first pass that finds a world,
        // and again after resetTime.
        if (worldLoaded && !clockStarted) {
            gettimeofday(&startTime, nullptr);
            executeFrame(0.0);
            clockStarted = 1;
        }
    }
}

int znBrowserIntern::addSimManager(znSimManager* manager) {
    if (!manager) return 0;
    if (manager != simManager) delete simManager;
    simManager = manager;
    return 1;
}

void znBrowserIntern::resetTime() {
    clockStarted = 0;
    currentTime = 0.0;
}

int znBrowserIntern::eventFun(znNode* node, int count, Event** events) {
    if (!events) znMessage(kNoEvents);
    for (int i = 0; i < count && events; ++i) {
        if (!events[i]) {
            // A time tick.
            Browser* browser = node->getBrowser();
            SFTime now(browser->getTime());
            int type = browser->ZNType();
            if (type == 0 || type == 4 || !node->isSensor())
                node->action(now, 2, nullptr);
            else
                node->action(now, 0, nullptr);
        } else {
            // Each real event hands the node the whole array, as managers
            // written for this browser expect.
            node->processEvents(count, events);
            eventsProcessedMap[node->getID()] = node;
        }
    }
    return 1;
}
