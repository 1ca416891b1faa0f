#include "parser/node_support_beside_library.h"

#include <dlfcn.h>
#include <unistd.h>

#include <string>

namespace {

std::string findBesideLibrary() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&nodeSupportBesideLibrary), &info) == 0 || info.dli_fname == nullptr)
        return std::string();
    const std::string library = info.dli_fname;
    const std::size_t slash = library.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string(".") : library.substr(0, slash);
    // The relative way from the library's folder to the file, as the build
    // lays both out: it holds in the build tree and wherever the install goes.
    std::string path = folder + "/" + WRL_NODE_SUPPORT_BESIDE_LIBRARY;
    return access(path.c_str(), R_OK) == 0 ? path : std::string();
}

}  // namespace

const char* nodeSupportBesideLibrary() {
    static const std::string path = findBesideLibrary();
    return path.empty() ? nullptr : path.c_str();
}
