// Every text that the scene-graph back-end prints, so that tests assert the
// exact words.
#ifndef OPTIMIZER_MESSAGES_H
#define OPTIMIZER_MESSAGES_H

// znMessage, for each URL of an ImageTexture that gives no image.
inline constexpr const char* kTextureCantOpen = "optImageTexture:  Can't open %s!";

#endif
