// The browser core: owns the world of types, nodes, names and routes.
#ifndef ZN_BROWSER_INTERN_H
#define ZN_BROWSER_INTERN_H

#include <iosfwd>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <stack>
#include <string>
#include <vector>

#include "browser/zn_browser.h"
#include "database/zn_database_world.h"
#include "base/zn_id_table.h"
#include "base/zn_name_table.h"
#include "browser/zn_numbered_names.h"
#include "fields/zn_array.h"
#include "fields/zn_field_text.h"

class znNodeType;
class znNode;
class znField;
class znDatabase;
class Event;
class EventOut;
class EventOutObserver;
struct _zndbNode;

// A node-valued field whose text named a node that did not exist yet.
struct ResolveStackElem {
    znField* field;  // borrowed
    // The whole text: a node's names are of any length, and a list of
    // children may name many.
    std::string value;
};

class znBrowserIntern : public znBrowser, public znDatabaseWorld, public znNodeNames {
public:
    explicit znBrowserIntern(ZN* system);

    const char* getName() override;
    const char* getVersion() override;
    float getCurrentSpeed() override { return 0.0f; }
    float getCurrentFrameRate() override { return static_cast<float>(frameRate); }
    const char* getWorldURL() override { return worldURL; }
    void replaceWorld(std::vector<BaseNode> nodes) override;
    void replaceWorld(BaseNode* nodes, int count) override;
    std::vector<BaseNode>* createVrmlFromString(const char* text) override;
    int createVrmlFromString(const char* text, BaseNode** out) override;
    void createVrmlFromURL(std::vector<const char*>& urls, BaseNode& node, const char* eventIn) override;
    void createVrmlFromURL(const char** urls, BaseNode& node, const char* eventIn) override;
    void addRoute(BaseNode& from, const char* eventOut, BaseNode& to, const char* eventIn) override;
    void deleteRoute(BaseNode& from, const char* eventOut, BaseNode& to, const char* eventIn) override;
    int loadURL(std::vector<const char*>& urls, std::vector<const char*>& parameters) override;
    int loadURL(const char** urls, const char** parameters) override;
    void setDescription(const char* text) override;
    ~znBrowserIntern() override;
    void executeFrame(double time) override;
    void executeLoop() override;
    const char* readURL(std::vector<const char*>& urls, int mode) override;
    const char* readURL(const char** urls, int mode) override;
    int writeURL(char* file) override;
    double getTime() override { return currentTime; }
    void resetTime() override;
    int addSimManager(znSimManager* manager) override;
    int init() override;
    Node* getNode(const char* name) override;
    Node* getNode(const char* name, Node** out) override;
    void addTopLevel(BaseNode& node) override;
    void removeTopLevel(BaseNode& node) override;
    zn_URL* getURLInterface() override { return urlInterface; }
    int setURLInterface(zn_URL* url) override;
    ZN* getZN() override { return system; }
    void setZN(ZN* s) override { system = s; }
    znAppInterfaces* getAppInterfaces() override { return appInterfaces; }
    znScriptInterfaces* getScriptInterfaces() override { return scriptInterfaces; }
    // The system object's tables, from the system object, which the browser
    // must not know itself.
    void attachSystem(znAppInterfaces* applications, znScriptInterfaces* scripts) {
        appInterfaces = applications;
        scriptInterfaces = scripts;
    }
    int addUrlFilter(znUrlFilter filter) override;
    void getRoutes(std::vector<char*>& out) override;
    znDatabase* getDatabase() override { return database; }
    void clearAll() override;
    void updateScene() override;
    void registerZNType(int type) override { znType = type; }
    int ZNType() override { return znType; }
    bool typeStandsAtTop(int typeId) override;

    void postEventIn(int index, Field& value, double time) override;
    void postEventOut(int index, Field& value, double time) override;
    int nextEventIndex() override;
    void vrml2data(void* data, FieldType type, const char* text) override;
    void data2vrml(void* data, FieldType type, char* out) override;

    // Tables of the world.
    int getTypeID(const char* name);
    // `name` is in stored form (kind letter, five digits, "+", name).
    int getNodeID(const char* name);
    znNodeType* getType(int id);
    znNode* getNode(int id);
    void initializeNewNodes();
    void addToToplevelList(const char* name) override;

    // Entering objects into the tables; the creation of types and nodes
    // from declarations goes through these.
    void enterType(znNodeType* type);
    void enterNode(znNode* node);
    // Remembers a node-valued field to fill once every node exists. A text
    // longer than the element holds is cut and reported.
    void pushUnresolved(znField* field, const char* text);
    int isUnresolvedReference() const { return unresolvedReference; }
    void clearUnresolvedReference() { unresolvedReference = 0; }
    void setAddingType(int value) { addingType = value; }
    const std::list<int>& getTopLevel() const { return topLevel; }
    const std::vector<znNode*>& getNewNodes() const { return newNodes; }

    // Types from the database and at run time (zn_browser_types.cpp).
    // addType answers 1 when the type entered the table; the new* forms
    // answer the new type's ID.
    int addType(_zndbProto* proto, _zndbData* fields) override;
    int newType(const char* name, std::vector<const char*>& urls, int sensor);
    int newType(const char* name, const char* url, int sensor);

    // Nodes from the database and at run time (zn_browser_nodes.cpp).
    // addNode answers 1 when every node and field of the chain entered.
    int addNode(_zndbNode* first) override;
    znNode* newNode(const char* name, znNodeType* type);
    znNode* newNode(const char* name, int typeID);
    // The runtime field inside a value that a script holds, or null.
    static znField* fieldToZnField(Field* value);

    // Routes and events (zn_browser_routes.cpp).
    void addRouteByID(int routeID, int fromNode, int toNode, char* eventOut, char* eventIn);
    void readRoutes(const char* unused);
    void addObserver(Node& node, char* eventOut, EventOutObserver* observer, void* data, EventOut* out);
    // What the browser gives the manager to deliver events to one node.
    static int eventFun(znNode* node, int count, Event** events);

    // The deferred half of loadURL, run by the next frame
    // (zn_browser_runtime.cpp).
    int loadURL();

    // Output of the world as VRML text (zn_browser_output.cpp).
    int writeURLtoStream(std::ostream& out);

    znSimManager* getSimManager() { return simManager; }
    // Takes `db` over and destroys the database in use; null is refused.
    void replaceDatabase(znDatabase* db);

    // Text conversion helpers.
    void lfvrml2data(_znArray<float>& array, int count, const char* text);
    void lfdata2vrml(_znArray<float>& array, int count, char* out);

    // The names of the world's nodes, for the text of node values
    // (zn_browser_field_text.cpp). A name that no node has yet is noted as
    // a forward reference, except while a type is being added.
    void findNode(const char* name, BaseNode& node) override;
    const char* nameOf(BaseNode& node) override;

private:
    // The URL interface of a browser that was given none; made once.
    zn_URL* defaultURLInterface();
    void clearNodeTables();
    // `parentName` as a text that lives as long as the world's nodes.
    const char* keepParentName(const char* parentName);
    // The number of the name map's `key`, or of the name that a numbered
    // key falls back to; null, with the last key tried in `last`, when
    // none is there.
    const int* findNamed(std::string key, std::string& last);
    // An ID for a type made at run time that no type has or will be given.
    int freshTypeID();
    // One field of a node being added, from its record's value, or from
    // the type's default where `value` is null; the index entered, or -1.
    int addValue(znNode* node, znNodeType* type, int index, const char* fieldName, FieldType fieldType,
                 DataType dataType, FieldFlags& flags, const char* value, bool eventInsOnDemand);
    // The type's defaults at the indices [from, to) that no record named;
    // false when one of them could not be entered.
    bool addDefaults(znNode* node, znNodeType* type, int from, int to, bool eventInsOnDemand);

    char* worldURL;      // owning, strdup
    char* description;   // owning, strdup
    int worldLoaded;
    std::map<std::string, int> typeIDs;
    // Nothing walks the names in order, and a world has one per node.
    znNameTable nodeIDs;
    znNumberedNames numberedNames;  // of the names in nodeIDs
    // The PROTOs whose bodies hold nodes, each name kept once for all its
    // nodes; the last one asked for, which the next node nearly always asks
    // for again.
    std::set<std::string, std::less<>> parentNames;
    const std::string* lastParentName = nullptr;
    std::map<int, znNodeType*> types;  // owning
    znIdTable<znNode> nodes;           // owning
    std::vector<znNode*> newNodes;     // borrowed from `nodes`
    int unresolvedReference;
    std::stack<ResolveStackElem*> resolveStack;  // owning
    znUrlFilter urlFilter;
    znDatabase* database;  // owning
    int addingType;
    int urlPending;
    std::list<const char*> pendingURLs;  // owning, strdup
    zn_URL* urlInterface;      // borrowed, unless it is defaultURL
    std::unique_ptr<zn_URL> defaultURL;  // made when nobody gave one
    ZN* system;                // back pointer
    znAppInterfaces* appInterfaces = nullptr;        // borrowed from the system object
    znScriptInterfaces* scriptInterfaces = nullptr;  // borrowed from the system object
    int znType;
    int clockStarted;
    double currentTime;
    double frameRate;
    // Owning for the default made by the constructor; one given through
    // addSimManager replaces it and is the application's.
    znSimManager* simManager;
    std::list<int> topLevel;
    // The implementation references of the types, which their interfaces
    // may keep.
    std::vector<char*> typeURLs;  // owning, strdup
};

// The family templates of the text conversion, forwarded to fields/.
template <class T>
void mvrml2data(znBrowserIntern* browser, std::vector<T>& list, FieldType elementType, const char* text);
template <class T>
void mdata2vrml(znBrowserIntern* browser, std::vector<T>& list, FieldType elementType, char* out);
void mvrml2string(std::vector<std::string>& list, const char* text);

#endif
