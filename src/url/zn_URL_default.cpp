#include "url/zn_URL_default.h"

#include "url/zn_URL_files.h"

const char* zn_URL_default::addpath(const char* url, int push) {
    const std::string resolved = znResolveURLPath(url, push, pathStack, znURLAbsoluteRule::joined);
    if (url == nullptr) return nullptr;
    return znStorePath(resolved, path, sizeof path);
}

void zn_URL_default::delpath(int push) {
    if (push == 1) pathStack.pop();
}

FILE* zn_URL_default::fopenURL(const char* url, int push) {
    // A failed open keeps its stack entry: the caller's close or delpath
    // removes it.
    const char* local = addpath(url, push);
    return local ? std::fopen(local, "r") : nullptr;
}

std::ifstream* zn_URL_default::iopenURL(const char* url, int push) {
    const char* local = addpath(url, push);
    return local ? new std::ifstream(local) : nullptr;
}

const char* zn_URL_default::getURL(const char* url, int push) {
    const char* local = addpath(url, push);
    if (local == nullptr || !znIsLocalFile(local)) return nullptr;
    FILE* probe = std::fopen(local, "r");
    if (probe == nullptr) return nullptr;
    std::fclose(probe);
    return local;
}

int zn_URL_default::fcloseURL(FILE* file, int push) {
    delpath(push);
    if (file) std::fclose(file);
    return 0;
}

int zn_URL_default::icloseURL(std::ifstream* stream, int push) {
    delpath(push);
    if (stream) stream->close();
    return 0;
}

const char* zn_URL_default::get_path() { return pathStack.top(); }
