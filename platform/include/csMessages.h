// Every text that the scene-graph toolkit prints.
#ifndef CS_MESSAGES_H
#define CS_MESSAGES_H

// Standard error, when csTexture::setFileName gets no image: the file name,
// then one of the reasons below.
constexpr const char* kCsImageUnreadable = "csTexture: cannot read image %s: %s\n";

constexpr const char* kCsImageCannotOpen = "cannot open the file";
constexpr const char* kCsImageUnknownFormat = "not a PNG, JPEG or GIF file";
constexpr const char* kCsImageCorrupt = "damaged or truncated image data";
constexpr const char* kCsImageTooLarge = "image larger than the toolkit takes";
constexpr const char* kCsImageUnsupported = "pixel layout not supported";

// Standard error, from ref or unref of an object that no longer lives.
constexpr const char* kCsRefDead = "csObject::ref: object %p is not alive\n";
constexpr const char* kCsUnrefDead = "csObject::unref: object %p is not alive\n";

#endif
