// libcurl, opened when the first remote name comes along rather than
// linked: a host that reads only local worlds neither loads libcurl and
// what it depends on (TLS, name lookup, compression) nor pays for that in
// start-up time and memory.
#ifndef ZN_URL_CURL_H
#define ZN_URL_CURL_H

#include <curl/curl.h>

#include <string>

// The libcurl functions that URL access calls.
struct znCurl {
    decltype(&curl_global_init) global_init;
    decltype(&curl_easy_init) easy_init;
    decltype(&curl_easy_setopt) easy_setopt;
    decltype(&curl_easy_perform) easy_perform;
    decltype(&curl_easy_getinfo) easy_getinfo;
    decltype(&curl_easy_cleanup) easy_cleanup;
    decltype(&curl_easy_strerror) easy_strerror;
    decltype(&curl_url) url;
    decltype(&curl_url_set) url_set;
    decltype(&curl_url_get) url_get;
    decltype(&curl_url_cleanup) url_cleanup;
    decltype(&curl_free) free;
};

// libcurl, opened and set up for the process by the first call from any
// thread and kept for the life of the process; null, with `why` telling
// the reason, when it cannot be had.
const znCurl* znCurlLibrary(std::string* why = nullptr);

#endif
