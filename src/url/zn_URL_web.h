// Local and remote files. Remote ones (http and https) are fetched once
// into a cache of files in the temporary directory and read from there;
// any file that turns out to be gzip-compressed is handed on unpacked.
#ifndef ZN_URL_WEB_H
#define ZN_URL_WEB_H

#include <atomic>
#include <string>

#include "url/url_messages.h"
#include "url/zn_URL.h"
#include "url/zn_URL_pathstack.h"

class zn_URL_web : public zn_URL {
public:
    // With a nonzero push, a null answer takes the pushed entry off again.
    FILE* fopenURL(const char* url, int push) override;
    std::ifstream* iopenURL(const char* url, int push) override;
    // Unlike the local-file object, a name that begins with "/" is not
    // joined to the stack, unless the top of the stack is remote: there it
    // names a file on the same server. With a nonzero push the stack grows
    // by one entry even when the answer is null.
    const char* getURL(const char* url, int push) override;
    int fcloseURL(FILE* file, int push) override;
    int icloseURL(std::ifstream* stream, int push) override;
    const char* get_path() override;
    void readAs(const char* url, const char* localPath) override;
    // Remote names are refused from now on, with a report: nothing goes on
    // the network.
    void refuseRemote() { remoteRefused = true; }

    // 0 when the file of `url` is in the cache now (found or fetched), -1
    // after a report.
    int get_remote(const char* url);
    // `path` itself for a plain file; for a gzip file the path of its
    // unpacked copy in the temporary directory, or null when it cannot be
    // unpacked.
    const char* gunzip(const char* path);

    // The cache file of `url`: its own for each URL, named after the URL's
    // last path component so that its extension stays.
    static std::string cacheName(const std::string& url);

    // Remote requests made by this process; only the first one without a
    // proxy gets the note on ZNPROXY. Tests reset it.
    static std::atomic<int> remoteRequests;

private:
    char path[kWebPathBufferSize] = {};  // the last answer of getURL or gunzip
    znURLPathStack pathStack;
    // The one URL that is read from a local file of its own (readAs).
    std::string standInURL;
    std::string standInFile;
    bool remoteRefused = false;
};

// The factory through which a host installs remote access as the browser's
// URL object. The caller owns the result.
zn_URL* new_zn_URL_web();

#endif
