// The abstract browser: how scripts, node classes and the loader see the
// world. Operations are added here as the browser core grows.
#ifndef ZN_BROWSER_H
#define ZN_BROWSER_H

#include <vector>

class ZN;

class znBrowser {
public:
    virtual int loadURL(std::vector<const char*>& urls, std::vector<const char*>& parameters) = 0;
    virtual ~znBrowser() = default;
    virtual void executeFrame(double time) = 0;
    virtual int init() = 0;
    virtual ZN* getZN() = 0;
    virtual void registerZNType(int type) = 0;
    virtual int ZNType() = 0;
};

#endif
