// The browser's side of the text of field values: it forwards to the
// families of fields/ and answers for the names of its nodes, which is where
// a forward reference is noticed.
#include "browser/zn_browser_intern.h"
#include "fields/zn_exception.h"
#include "fields/zn_field_text.h"
#include "nodes/zn_node.h"

void znBrowserIntern::vrml2data(void* data, FieldType type, const char* text) {
    znReadFieldText(data, type, text, *this);
}

// `out` holds kFieldTextBufferSize characters, as every caller's buffer does.
void znBrowserIntern::data2vrml(void* data, FieldType type, char* out) { znWriteFieldText(data, type, out, *this); }

void znBrowserIntern::lfvrml2data(_znArray<float>& array, int count, const char* text) {
    znReadVector(array, count, text);
}

void znBrowserIntern::lfdata2vrml(_znArray<float>& array, int count, char* out) {
    if (!out) return;
    znTextOut text(out);
    znWriteVector(array, count, text);
}

void znBrowserIntern::findNode(const char* name, BaseNode& node) {
    const int nodeID = getNodeID(name);
    if (nodeID == 0) {
        if (!addingType) unresolvedReference = 1;
        node = BaseNode();
        return;
    }
    znNode* named = nodes.find(nodeID);
    if (named && named->getID() != 0)
        node = *static_cast<BaseNode*>(named);
    else
        node = BaseNode();
}

const char* znBrowserIntern::nameOf(BaseNode& node) {
    try {
        znNode* n = getNode(node.getID());
        return n ? n->getName(nullptr) : nullptr;
    } catch (znInvalidNodeIDException&) {
        // A null node has no name.
        return nullptr;
    }
}

template <class T>
void mvrml2data(znBrowserIntern* browser, std::vector<T>& list, FieldType elementType, const char* text) {
    znReadList(list, elementType, text, *browser);
}

template <class T>
void mdata2vrml(znBrowserIntern* browser, std::vector<T>& list, FieldType elementType, char* out) {
    if (!out) return;
    znTextOut text(out);
    znWriteList(list, elementType, text, *browser);
}

void mvrml2string(std::vector<std::string>& list, const char* text) { znReadStringList(list, text); }

template void mvrml2data(znBrowserIntern*, std::vector<int>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<float>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<double>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<_znArray<float>>&, FieldType, const char*);
template void mvrml2data(znBrowserIntern*, std::vector<BaseNode>&, FieldType, const char*);
template void mdata2vrml(znBrowserIntern*, std::vector<int>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<float>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<double>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<_znArray<float>>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<BaseNode>&, FieldType, char*);
template void mdata2vrml(znBrowserIntern*, std::vector<std::string>&, FieldType, char*);
