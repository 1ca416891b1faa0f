// Every text that the VRML-level node classes print, so that tests assert
// the exact words.
#ifndef VRMLNODE_MESSAGES_H
#define VRMLNODE_MESSAGES_H

// znAlert, when an image is cached under a name that is cached already.
inline constexpr const char* kImageNotCacheable = "WARNING:  Couldn't add %s to image cache.\n";

// znMessage, for each URL of an Inline that names no file that opens.
inline constexpr const char* kInlineCantOpen = "Inline:  Can't open %s!";
// znMessage, for an Inline that names a file which an enclosing Inline is
// reading: the world would inline itself without end.
inline constexpr const char* kInlineCycle = "Inline:  %s inlines itself; it is not read again.";
// znMessage, for an Inline nested deeper than the limit, with the limit.
inline constexpr const char* kInlineTooDeep = "Inline:  %s lies more than %d Inlines deep; it is not read.";

#endif
