// Bytes decoded as a picture file, PNG, JPEG or GIF as their first bytes
// say, the way a texture reads its file.
#include <cstdint>
#include <cstdio>

#include "csImageFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    FILE* file = fmemopen(const_cast<std::uint8_t*>(data), size, "rb");
    if (file == nullptr) return 0;
    csImageData image;
    if (csReadImage(file, image) == nullptr) {
        // A decoded picture holds as many bytes as it says.
        if (image.pixels.size() != static_cast<std::size_t>(image.width) * image.height * image.components)
            __builtin_trap();
    }
    std::fclose(file);
    return 0;
}
