// The browser core: owns the world of types, nodes, names and routes.
#ifndef ZN_BROWSER_INTERN_H
#define ZN_BROWSER_INTERN_H

#include "browser/zn_browser.h"

class znBrowserIntern : public znBrowser {
public:
    explicit znBrowserIntern(ZN* system);

    int loadURL(std::vector<const char*>& urls, std::vector<const char*>& parameters) override;
    void executeFrame(double time) override;
    int init() override;
    ZN* getZN() override { return system; }
    void registerZNType(int type) override { znType = type; }
    int ZNType() override { return znType; }

private:
    ZN* system;      // back pointer to the system object
    int znType = -1;
};

#endif
