// A grouping node whose children are the top-level nodes of another world
// file: the first of its URLs that opens, relative to the file that names
// it, local or on a web server, gzipped or not. The file is read when the
// node is first built, so that a world whose files inline each other is
// caught at the first file that comes round again, and a chain of files is
// cut at a depth limit.
#ifndef INLINE_H
#define INLINE_H

#include <string>

#include "vrmlnodes/GroupingNode.h"
#include "vrmlnodes/URLNode.h"

class Inline : public URLNode, public virtual GroupingNode {
public:
    // Inlines nested deeper than this are not read.
    static constexpr int kDepthLimit = 16;

    explicit Inline(znInternal* pair);
    ~Inline() override = default;
    void processEvent(Event& event) override;

    // Keeps the new URLs; the file is read again at the next build.
    virtual void set_url(MFString& value, double time);

    // Reads the first URL that opens into the children, unless the file is
    // being built already by an enclosing Inline or lies too deep; each URL
    // that fails costs a message. Done once until the url changes.
    void readChildren();
    bool hasRead() const { return read; }

    // While one lives, the file that `node` read counts as being built:
    // Inlines among its children that name it again are not read.
    class Building {
    public:
        explicit Building(const Inline& node);
        ~Building();
        Building(const Building&) = delete;
        Building& operator=(const Building&) = delete;

    private:
        bool entered;
    };

protected:
    MFString* url;  // borrowed: the node's own field

private:
    MFNode readNodes;     // the top-level nodes of the file read
    bool read = false;
    std::string readKey;  // what identifies the file read; empty when none was
};

#endif
