// A host that opens the loader with RTLD_LOCAL, as plug-in hosts do, and
// checks that the built-in classes are still found by name: their symbols are
// then invisible to a global lookup, and only the loader's own image has them.
#include <dlfcn.h>

#include <cstdio>

namespace {

const char* const kBuiltins[] = {
    "AppearanceInitialize", "BoxInitialize", "ColorInitialize", "ConeInitialize",
    "CollisionInitialize", "CoordinateInitialize", "CylinderInitialize", "FontStyleInitialize",
    "GroupInitialize", "ImageTextureInitialize", "IndexedFaceSetInitialize",
    "IndexedLineSetInitialize", "MaterialInitialize", "NormalInitialize", "PointSetInitialize",
    "ShapeInitialize", "SphereInitialize", "SwitchInitialize", "TextInitialize",
    "TextureCoordinateInitialize", "TextureTransformInitialize", "TransformInitialize"};

// The loader's lookup of built-in symbols, by its linker name.
constexpr const char* kFindLoadedSymbol = "_Z18znFindLoadedSymbolPKc";

int fail(const char* what, const char* detail) {
    std::fprintf(stderr, "local host: %s %s\n", what, detail ? detail : "");
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return fail("usage: local_host <library> <world>", nullptr);
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (!library) return fail("cannot open", dlerror());
    if (dlsym(RTLD_DEFAULT, "GroupInitialize")) return fail("library is not local:", "GroupInitialize is global");

    using Finder = void* (*)(const char*);
    auto find = reinterpret_cast<Finder>(dlsym(library, kFindLoadedSymbol));
    if (!find) return fail("no symbol", kFindLoadedSymbol);
    for (const char* name : kBuiltins) {
        void* expected = dlsym(library, name);
        if (!expected) return fail("library lacks", name);
        if (find(name) != expected) return fail("not found through the loader:", name);
    }

    using Load = void* (*)(char*);
    auto load = reinterpret_cast<Load>(dlsym(library, "wrlLoad"));
    if (!load) return fail("no symbol", "wrlLoad");
    load(argv[2]);
    std::printf("local host: %zu built-ins found\n", sizeof kBuiltins / sizeof kBuiltins[0]);
    return 0;
}
