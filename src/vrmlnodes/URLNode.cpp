#include "vrmlnodes/URLNode.h"

#include <cctype>
#include <cstring>
#include <vector>

#include "browser/zn_browser.h"
#include "url/zn_URL.h"
#include "url/zn_URL_pathstack.h"

const char* URLNode::getFile(const char* text) {
    Browser* browser = BaseNode::getBrowser();
    if (!browser || !text) return nullptr;
    const std::string name = resolveURL(text);
    zn_URL* access = browser->getURLInterface();
    return access ? access->getURL(name.c_str(), 0) : nullptr;
}

std::string URLNode::resolveURL(const char* text) {
    if (!text) return std::string();
    while (std::isspace(static_cast<unsigned char>(*text))) ++text;
    const char* base = getUrlBase();
    // Under a remote world a name from the root lies on the world's server.
    if (text[0] == '/' && znIsRemoteURL(base)) {
        std::string resolved = znResolveRemoteURL(base, text);
        if (!resolved.empty()) return resolved;
    }
    if (!base || std::strchr(text, ':') || text[0] == '/' || text[0] == '\\') return text;
    // A base may name the world's file rather than its directory; only
    // what stands up to its last slash is joined.
    const char* slash = std::strrchr(base, '/');
    return std::string(base, slash ? static_cast<size_t>(slash - base) + 1 : 0) + text;
}

void URLNode::addURLpath(MFString& urls, std::list<std::string>& out) {
    std::vector<std::string> values;
    urls.getValue(values);
    out.insert(out.end(), values.begin(), values.end());
}
