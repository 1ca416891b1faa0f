// Every text that the VRML-level node classes print, so that tests assert
// the exact words.
#ifndef VRMLNODE_MESSAGES_H
#define VRMLNODE_MESSAGES_H

// znAlert, when an image is cached under a name that is cached already.
inline constexpr const char* kImageNotCacheable = "WARNING:  Couldn't add %s to image cache.\n";

#endif
