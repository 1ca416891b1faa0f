// The abstract browser: how scripts, node classes, fields and the loader see
// the world. Node classes know it as `Browser`.
#ifndef ZN_BROWSER_H
#define ZN_BROWSER_H

#include <vector>

class ZN;
class znAppInterfaces;
class znScriptInterfaces;
class BaseNode;
class Node;
class Field;
class zn_URL;
class znSimManager;
class znDatabase;
enum FieldType : int;

typedef int (*znUrlFilter)(std::vector<const char*>& urls, std::vector<const char*>& parameters);

class znBrowser {
public:
    virtual const char* getName() = 0;
    virtual const char* getVersion() = 0;
    virtual float getCurrentSpeed() = 0;
    virtual float getCurrentFrameRate() = 0;
    virtual const char* getWorldURL() = 0;
    virtual void replaceWorld(std::vector<BaseNode> nodes) = 0;
    virtual void replaceWorld(BaseNode* nodes, int count) = 0;
    virtual std::vector<BaseNode>* createVrmlFromString(const char* text) = 0;
    virtual int createVrmlFromString(const char* text, BaseNode** out) = 0;
    virtual void createVrmlFromURL(std::vector<const char*>& urls, BaseNode& node, const char* eventIn) = 0;
    virtual void createVrmlFromURL(const char** urls, BaseNode& node, const char* eventIn) = 0;
    virtual void addRoute(BaseNode& from, const char* eventOut, BaseNode& to, const char* eventIn) = 0;
    virtual void deleteRoute(BaseNode& from, const char* eventOut, BaseNode& to, const char* eventIn) = 0;
    virtual int loadURL(std::vector<const char*>& urls, std::vector<const char*>& parameters) = 0;
    virtual int loadURL(const char** urls, const char** parameters) = 0;
    virtual void setDescription(const char* text) = 0;
    virtual ~znBrowser() = default;
    virtual void executeFrame(double time) = 0;
    virtual void executeLoop() = 0;
    virtual const char* readURL(std::vector<const char*>& urls, int mode) = 0;
    virtual const char* readURL(const char** urls, int mode) = 0;
    virtual int writeURL(char* file) = 0;
    virtual double getTime() = 0;
    virtual void resetTime() = 0;
    virtual int addSimManager(znSimManager* manager) = 0;
    virtual int init() = 0;
    virtual Node* getNode(const char* name) = 0;
    virtual Node* getNode(const char* name, Node** out) = 0;
    virtual void addTopLevel(BaseNode& node) = 0;
    virtual void removeTopLevel(BaseNode& node) = 0;
    virtual zn_URL* getURLInterface() = 0;
    virtual int setURLInterface(zn_URL* url) = 0;
    virtual ZN* getZN() = 0;
    virtual void setZN(ZN* system) = 0;
    // The host plug-ins and script bindings of the system object that owns
    // the browser, which it hands over once it has made them; null before.
    virtual znAppInterfaces* getAppInterfaces() = 0;
    virtual znScriptInterfaces* getScriptInterfaces() = 0;
    virtual int addUrlFilter(znUrlFilter filter) = 0;
    virtual void getRoutes(std::vector<char*>& out) = 0;
    virtual znDatabase* getDatabase() = 0;
    virtual void clearAll() = 0;
    virtual void updateScene() = 0;
    virtual void registerZNType(int type) = 0;
    virtual int ZNType() = 0;

    // What the runtime fields need of the browser: posting a change, a
    // fresh event index, and the text form of values.
    virtual void postEventIn(int index, Field& value, double time) = 0;
    virtual void postEventOut(int index, Field& value, double time) = 0;
    virtual int nextEventIndex() = 0;
    virtual void vrml2data(void* data, FieldType type, const char* text) = 0;
    virtual void data2vrml(void* data, FieldType type, char* out) = 0;
};

// The name under which node classes and scripts know the browser.
using Browser = znBrowser;

#endif
