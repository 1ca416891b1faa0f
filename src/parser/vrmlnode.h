// VrmlNodeType: the parser's record of one node type or one node being read.
// A PROTO being declared, a known type in a name space and an instance copy
// with its DEF-form name share this layout; print() hands the finished record
// to the scene database.
#ifndef VRMLNODE_H
#define VRMLNODE_H

#include <memory>
#include <vector>

class znParser;

// 0 while a PROTO's interface is read, 1 inside a node.
extern int _setmode;
// _setmode as it was when the node being read was entered.
extern int old_setmode;

class VrmlNodeType {
public:
    // Enclosing PROTO names kept per record, the list's null end included.
    static constexpr int kMaxParents = 20;

    struct NameTypeRec {
        char* name = nullptr;   // owning unless sharedName
        int type = 0;           // field-type token, 271..290
        char* value = nullptr;  // owning unless sharedValue, may be null
        char* isNode = nullptr; // owning, may be null
        std::vector<char*> isFields;  // owning
        int setmode = 0;
        char exposed = 0;
        // An instance copy borrows the name and the default value of the
        // type it was copied from, which outlives it: every node of a file
        // is such a copy, and most of its values are the defaults.
        char sharedName = 0;
        char sharedValue = 0;
    };
    using Table = std::vector<NameTypeRec*>;

    VrmlNodeType(const char* nm, znParser* parser);
    // An instance copy: the interface and the default values of `other`,
    // without its IS bindings. Counts the copy in `other`. Its name, field
    // names and default values are `other`'s own texts until setName or
    // ownTexts() is called.
    VrmlNodeType(VrmlNodeType& other, znParser* parser);
    ~VrmlNodeType();
    VrmlNodeType(const VrmlNodeType&) = delete;
    VrmlNodeType& operator=(const VrmlNodeType&) = delete;

    // The name in the database; it also becomes the declared name.
    void setName(const char* nm);
    // The name the file gave a type, where it differs from its name in the
    // database.
    void setDeclaredName(const char* nm);
    void setInstName(const char* nm);
    const char* getName() const { return name; }
    const char* getDeclaredName() const { return declaredName != nullptr ? declaredName : name; }
    const char* getInstName() const { return instName; }

    void addEventIn(const char* nm, int type);
    void addEventOut(const char* nm, int type);
    void addField(const char* nm, int type);
    void addExposedField(const char* nm, int type);

    int hasEventIn(const char* nm) const;
    int hasEventOut(const char* nm) const;
    int hasField(const char* nm) const;
    // Always 0: the look-up text carries a line feed. Nothing relies on it.
    int hasExposedField(const char* nm) const;

    // Takes ownership of `value` when the field exists (answer 1).
    int setField(const char* nm, const char* value) const;
    // Kind 1, 3 or 7 binds a field, 2 an eventIn, 4 an eventOut; any other
    // kind answers -1, which counts as success.
    int setFieldIS(const char* nm, const char* nodeName, const char* protoField, int type, int kind) const;
    // Mask of the kinds of `nm` (1 field, 2 eventIn, 4 eventOut, 3 exposed
    // field); its token goes to *type.
    int getFieldType(const char* nm, int* type) const;

    static const char* getTypeString(int token);
    // The FieldType number (20..39) of a field-type token; -1 for others.
    static int getTypeJX(int token);

    // Sends the record to the parser's database: a PROTO without instName,
    // a node with it.
    void print();

    void clearfields();
    void clearfielddata();
    // Gives the record copies of the texts it shares, for a copy that must
    // outlive the record it was made from.
    void ownTexts();

    int parentCount = 0;
    char* parents[kMaxParents] = {};  // owning, null-terminated
    char savedInScript = 0;
    int savedSetmode = 0;
    int isExternTarget = 0;
    char* name = nullptr;      // owning, unless an instance copy borrows its type's
    char* instName = nullptr;  // owning, may be null
    char* declaredName = nullptr;  // owning, null when it is `name`
    int typeId = 1;
    int instanceNumber = 0;
    int useCount = 1;
    Table* eventIns;   // owning: one of `tables`
    Table* eventOuts;  // owning: one of `tables`
    Table* fields;     // owning: one of `tables`
    znParser* parser;  // borrowed: the parser that made this record

private:
    // Whether no two of the interface's items share a name; kept until an
    // item is added.
    bool namesAreUnique();
    // Whether `rec`, of kind 0 field, 1 eventOut, 2 eventIn, holds what the
    // type gave it and nothing the file did.
    static bool isUnsetDefault(const NameTypeRec& rec, int kind);

    // An instance copy leaves out the records of its unset fields: the
    // world finds each of them by its place in the type. That holds where
    // every name finds one place only.
    bool defaultsImplied = false;
    int uniqueNames = -1;  // namesAreUnique as last found, -1 until asked
    // Every node a file holds is read into a record of its own: the three
    // tables come with it rather than as three more allocations.
    Table tables[3];
    bool sharedTypeName = false;
    // The records of an instance copy, made in one piece.
    std::unique_ptr<NameTypeRec[]> recordBlock;
    std::size_t recordBlockSize = 0;

    void add(Table* list, const char* nm, int type, char exposed);
    static NameTypeRec* lookUp(const Table* list, const char* nm);
    static int has(const Table* list, const char* nm);
    static int setIS(Table* list, const char* nm, const char* nodeName, const char* protoField, int type);
    static void copyTable(const Table* from, Table* to, NameTypeRec*& next);
    void clearTable(Table* list);
    static void clearTableData(Table* list);
    static void ownTable(Table* list);
    bool inBlock(const NameTypeRec* rec) const;
};

// The parser's entry for a node being read.
struct FieldRec {
    VrmlNodeType* nodeType;  // owning: the instance copy
    const char* fieldName;   // borrowed: the field being read
};

// The enclosing PROTO names of a route.
struct Parents {
    char* names[VrmlNodeType::kMaxParents] = {};  // owning, null-terminated
    int count = 0;
    ~Parents();
};

// Used over the PROTO stack, outermost first.
void setParent(VrmlNodeType* scope, VrmlNodeType* target);
void setRouteParent(VrmlNodeType* scope, Parents* target);

#endif
