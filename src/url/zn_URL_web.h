// Local and remote files. Remote ones are fetched with a one-line GET into
// a cache of files in the temporary directory; any file that turns out to
// be gzip-compressed is handed on unpacked.
#ifndef ZN_URL_WEB_H
#define ZN_URL_WEB_H

#include <netinet/in.h>

#include <cstdint>
#include <string>

#include "url/url_messages.h"
#include "url/zn_URL.h"
#include "url/zn_URL_pathstack.h"

class zn_URL_web : public zn_URL {
public:
    // A socket address (Internet only here) and its length.
    struct Address {
        union {
            sockaddr_in inet;
            char raw[112];
        } address;
        std::uint32_t length;
    };

    // With a nonzero push, a null answer takes the pushed entry off again.
    FILE* fopenURL(const char* url, int push) override;
    std::ifstream* iopenURL(const char* url, int push) override;
    // Unlike the local-file object, a name that begins with "/" is not
    // joined to the stack. With a nonzero push the stack grows by one entry
    // even when the answer is null.
    const char* getURL(const char* url, int push) override;
    int fcloseURL(FILE* file, int push) override;
    int icloseURL(std::ifstream* stream, int push) override;
    const char* get_path() override;

    // 0 when the file of `url` is in the cache now (found or fetched), -1
    // after a report.
    int get_remote(const char* url);
    // `path` itself for a plain file; for a gzip file the path of its
    // unpacked copy in the temporary directory, or null when it cannot be
    // unpacked.
    const char* gunzip(const char* path);

    // Fetches an "http://host[:port]/path" url into `data`; the byte count,
    // 0 on any failure.
    static int getURL(std::string& data, const char* url);
    static int getURLbyParts(std::string& data, const char* host, int port, const char* path);

    // The socket layer that retrieval needs. Failures set errno, to the
    // system's value or to one of the numbers of url_messages.h, whose text
    // sn_strerror gives.
    static int fd_printf(int fd, const char* format, ...) __attribute__((format(printf, 2, 3)));
    static void seterror(int number, const char* text);
    static const char* sn_strerror();
    // A connected descriptor, or -1.
    static int sn_start_inet_stream_client(const char* host, const char* port);
    // Fills the one static address (each call overwrites it) and answers
    // it; null after seterror.
    static Address* make_inet_addr(const char* host, const char* port, const char* protocol);

    // Remote requests made by this process; only the first one without a
    // proxy gets the note on ZNPROXY. Tests reset it.
    static int remoteRequests;

private:
    char path[kWebPathBufferSize] = {};  // the last answer of getURL or gunzip
    znURLPathStack pathStack;
};

// The factory through which a host installs remote access as the browser's
// URL object. The caller owns the result.
zn_URL* new_zn_URL_web();

#endif
