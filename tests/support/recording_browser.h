// A browser that records what fields post, for tests of the event step.
#ifndef WRL_RECORDING_BROWSER_H
#define WRL_RECORDING_BROWSER_H

#include <vector>

#include "browser/zn_browser_intern.h"

namespace wrltest {

struct PostedEvent {
    bool eventIn;
    int index;
    Field* value;
    double time;
};

class RecordingBrowser : public znBrowserIntern {
public:
    RecordingBrowser() : znBrowserIntern(nullptr) {}

    void postEventIn(int index, Field& value, double time) override {
        posted.push_back({true, index, &value, time});
    }
    void postEventOut(int index, Field& value, double time) override {
        posted.push_back({false, index, &value, time});
    }
    int nextEventIndex() override { return nextIndex++; }

    std::vector<PostedEvent> posted;
    int nextIndex = 100;
};

}  // namespace wrltest

#endif
