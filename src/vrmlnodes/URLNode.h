// What every node that reads files shares: a URL text made into a local
// file through the node's URL base and the browser's URL interface.
#ifndef URLNODE_H
#define URLNODE_H

#include <list>
#include <string>

#include "vrmlnodes/VRMLNodebase.h"

class URLNode : public virtual VRMLNode {
public:
    URLNode() = default;
    // A local path for `text`, or null. The text belongs to the URL
    // interface and lasts until its next call.
    virtual const char* getFile(const char* text);
    // The name under which `text` is to be fetched: leading blanks dropped,
    // and a relative name put beside the file the node was read from.
    std::string resolveURL(const char* text);
    ~URLNode() override = default;

    // Appends every value of `urls` to `out`, in order; nothing more.
    void addURLpath(MFString& urls, std::list<std::string>& out);
};

#endif
