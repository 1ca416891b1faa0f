#include "url/zn_URL_pathstack.h"

#include <strings.h>

#include <cctype>
#include <cstdio>
#include <cstring>
#include <string>

#include "base/zn_reports.h"
#include "url/url_messages.h"
#include "url/zn_URL_curl.h"

const char* znURLPathStack::top() const { return entries.empty() ? nullptr : entries.front()->c_str(); }

void znURLPathStack::push(std::string directory) {
    entries.push_front(std::make_unique<std::string>(std::move(directory)));
}

void znURLPathStack::pop() {
    if (entries.empty()) return;
    retired.push_back(std::move(entries.front()));
    entries.pop_front();
}

std::string znFileURLPath(const std::string& path) {
    // "file:///a" and "file://localhost/a" are the "file:/a" of other
    // writers; another host is left to fail as a path.
    std::string name = path;
    const std::size_t localhost = std::strlen(kLocalHostAuthority);
    if (name.compare(0, 3, "///") == 0)
        name.erase(0, 2);
    else if (name.size() > localhost && strncasecmp(name.c_str(), kLocalHostAuthority, localhost) == 0 &&
             name[localhost] == '/')
        name.erase(0, localhost);
    // A URL writes a blank and other bytes as "%20" and the like.
    std::string decoded;
    decoded.reserve(name.size());
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == '%' && i + 2 < name.size() && std::isxdigit(static_cast<unsigned char>(name[i + 1])) &&
            std::isxdigit(static_cast<unsigned char>(name[i + 2]))) {
            decoded += static_cast<char>(std::stoi(name.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            decoded += name[i];
        }
    }
    return decoded;
}

std::string znResolveURLPath(const char* url, int push, znURLPathStack& stack,
                             znURLAbsoluteRule absolute) {
    const char* text = url ? url : "";
    const std::size_t schemeLength = std::strlen(kFileScheme);
    // "file:" goes, the slash stays: "file:/a/b" names "/a/b".
    std::string buffer(text);
    if (strncasecmp(text, kFileScheme, schemeLength) == 0) {
        buffer.erase(0, schemeLength - 1);
        buffer = znFileURLPath(buffer);
    }
    // Only a name with no colon in it is relative to the stack: a colon marks
    // a scheme or host that carries its own location.
    const bool relative = std::strchr(text, ':') == nullptr;
    const bool keepAbsolute = absolute == znURLAbsoluteRule::kept;

    if (!push) {
        if (relative && !stack.empty() && !(keepAbsolute && buffer[0] == '/'))
            buffer.insert(0, stack.top());
        return buffer;
    }

    const std::string base = znLastPathComponent(buffer);
    const std::size_t dirLength = buffer.size() - base.size();
    std::string directory;
    if (dirLength < 1) {
        // A bare name lies in the directory of the file that names it.
        if (!stack.empty() && (!keepAbsolute || relative)) {
            directory = stack.top();
            buffer = directory + base;
        } else {
            directory = kNoStackDirectory;
        }
    } else {
        directory = buffer.substr(0, dirLength);
        if (relative && !stack.empty() && !(keepAbsolute && directory[0] == '/')) {
            directory.insert(0, stack.top());
            buffer = directory + base;
        }
    }
    stack.push(std::move(directory));
    return buffer;
}

bool znIsRemoteURL(const char* name) {
    if (name == nullptr) return false;
    for (const char* scheme : kRemoteSchemes)
        if (strncasecmp(name, scheme, std::strlen(scheme)) == 0) return true;
    return false;
}

bool znIsURL(const char* name) {
    return znIsRemoteURL(name) || (name && strncasecmp(name, kFileScheme, std::strlen(kFileScheme)) == 0);
}

std::string znResolveRemoteURL(const char* base, const char* reference, bool encoded) {
    // libcurl's URL parser resolves a URL set on a handle that holds one
    // against it.
    const znCurl* curl = znCurlLibrary();
    if (curl == nullptr) return "";
    CURLU* url = curl->url();
    const unsigned flags = CURLU_ALLOW_SPACE | (encoded ? CURLU_URLENCODE : 0);
    std::string out;
    char* text = nullptr;
    if (url && (base == nullptr || curl->url_set(url, CURLUPART_URL, base, flags) == CURLUE_OK) &&
        curl->url_set(url, CURLUPART_URL, reference, flags) == CURLUE_OK &&
        curl->url_get(url, CURLUPART_URL, &text, 0) == CURLUE_OK)
        out = text;
    curl->free(text);
    curl->url_cleanup(url);
    return out;
}

bool znFitsPathBuffer(const std::string& path, std::size_t size) {
    if (path.size() < size) return true;
    char report[160];
    std::snprintf(report, sizeof report, kPathTooLong, static_cast<int>(size - 1), path.c_str());
    znAlert(report);
    return false;
}

const char* znStorePath(const std::string& path, char* buffer, std::size_t size) {
    if (!znFitsPathBuffer(path, size)) return nullptr;
    std::memcpy(buffer, path.c_str(), path.size() + 1);
    return buffer;
}

std::string znLastPathComponent(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}
