#include "url/zn_URL_curl.h"

#include <dlfcn.h>

#include <mutex>

#include "url/url_messages.h"

namespace {

template <class F>
bool find(void* library, const char* name, F& function) {
    function = reinterpret_cast<F>(::dlsym(library, name));
    return function != nullptr;
}

}  // namespace

const znCurl* znCurlLibrary(std::string* why) {
    static std::once_flag once;
    static znCurl curl;
    static bool ready = false;
    static std::string failure;
    std::call_once(once, [] {
        // Local symbols: whatever else the host has loaded keeps its own.
        void* library = ::dlopen(kCurlLibrary, RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr) {
            const char* text = ::dlerror();
            failure = text ? text : kCurlLibrary;
            return;
        }
        const bool found =
            find(library, "curl_global_init", curl.global_init) && find(library, "curl_easy_init", curl.easy_init) &&
            find(library, "curl_easy_setopt", curl.easy_setopt) &&
            find(library, "curl_easy_perform", curl.easy_perform) &&
            find(library, "curl_easy_getinfo", curl.easy_getinfo) &&
            find(library, "curl_easy_cleanup", curl.easy_cleanup) &&
            find(library, "curl_easy_strerror", curl.easy_strerror) && find(library, "curl_url", curl.url) &&
            find(library, "curl_url_set", curl.url_set) && find(library, "curl_url_get", curl.url_get) &&
            find(library, "curl_url_cleanup", curl.url_cleanup) && find(library, "curl_free", curl.free);
        if (!found) {
            failure = std::string(kCurlLibrary) + ": a function is missing";
            return;
        }
        // The set-up is never undone, nor the library closed: the host may
        // use libcurl itself, and the set-up counts its users.
        if (curl.global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) {
            failure = std::string(kCurlLibrary) + ": " + curl.easy_strerror(CURLE_FAILED_INIT);
            return;
        }
        ready = true;
    });
    if (!ready && why) *why = failure;
    return ready ? &curl : nullptr;
}
