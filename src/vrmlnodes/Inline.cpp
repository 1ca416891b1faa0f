#include "vrmlnodes/Inline.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "base/zn_text.h"
#include "browser/zn_browser.h"
#include "base/zn_reports.h"
#include "url/zn_URL.h"
#include "vrmlnodes/vrmlnode_messages.h"

namespace {

// The event through which the browser hands over the nodes it read. No
// VRML interface has a field of this name, so no world can send it.
constexpr const char* kReadEvent = "inlined children";

// What identifies the files that Inlines are building now, outermost
// first: their real paths, or their URLs for files on web servers. One
// thread only.
std::vector<std::string>& filesBuilding() {
    static std::vector<std::string> files;
    return files;
}

// Two spellings of one local file name the same file.
std::string identify(const std::string& name) {
    char resolved[PATH_MAX];
    if (name.find("://") == std::string::npos && realpath(name.c_str(), resolved)) return resolved;
    return name;
}

}  // namespace

Inline::Inline(znInternal* pair) : BaseNode(pair), url(exposedField<MFString>("url")) {
    useChildrenField(&readNodes);
}

void Inline::processEvent(Event& event) {
    const char* name = event.getName();
    if (!name) return;
    if (std::strcmp(name, kReadEvent) == 0)
        deliver<GroupingNode>(this, &GroupingNode::set_children, event);
    else if (std::strcmp(name, "set_url") == 0)
        deliver(this, &Inline::set_url, event);
}

void Inline::set_url(MFString& value, double) {
    assign(url, value);
    read = false;
}

void Inline::readChildren() {
    read = true;
    readKey.clear();
    readNodes.clear();
    useChildrenField(&readNodes);
    Browser* browser = getBrowser();
    zn_URL* access = browser ? browser->getURLInterface() : nullptr;
    if (!access) return;
    const std::vector<std::string>& building = filesBuilding();
    for (const std::string& text : textsOf(url)) {
        const std::string name = resolveURL(text.c_str());
        if (name.empty()) continue;
        if (!access->getURL(name.c_str(), 0)) {
            znMessage(znFormatText(kInlineCantOpen, text.c_str()).c_str());
            continue;
        }
        const std::string key = identify(name);
        if (std::find(building.begin(), building.end(), key) != building.end()) {
            znMessage(znFormatText(kInlineCycle, text.c_str()).c_str());
            return;
        }
        if (static_cast<int>(building.size()) >= kDepthLimit) {
            znMessage(znFormatText(kInlineTooDeep, text.c_str(), kDepthLimit).c_str());
            return;
        }
        readKey = key;
        std::vector<const char*> urls{name.c_str()};
        browser->createVrmlFromURL(urls, *this, kReadEvent);
        return;
    }
}

Inline::Building::Building(const Inline& node) : entered(!node.readKey.empty()) {
    if (entered) filesBuilding().push_back(node.readKey);
}

Inline::Building::~Building() {
    if (entered) filesBuilding().pop_back();
}
