// Every text that the browser core prints or throws.
#ifndef ZN_BROWSER_MESSAGES_H
#define ZN_BROWSER_MESSAGES_H

inline constexpr const char* kBrowserName = "Zenoscapes";
inline constexpr const char* kBrowserVersion = "2.0R4";

inline constexpr const char* kInvalidTypeID = "Invalid Node Type ID:  ID=%d";
inline constexpr const char* kInvalidNodeID = "Invalid Node ID:  ID=%d";
inline constexpr const char* kInvalidNodeName = "Invalid Node name:  nodeName=%s";
inline constexpr const char* kInvalidNodeIDForName = "Invalid Node ID:  name=%s id=%d";
inline constexpr const char* kCantFindNodeID =
    "Possible error in getNodeID, will try to resolve later!\ngetNodeID : can't find ID for %s\n";
inline constexpr const char* kCantAddToWorld = "Can't add to current world";
inline constexpr const char* kCouldntLoadURL = "Couldn't load URL";
// A node reference too long for the resolve stack keeps only its start.
inline constexpr const char* kReferenceCut = "Node reference cut to %d characters: %s\n";

// Pattern of the name map's key for the first definition of a name.
inline constexpr const char* kFirstDefinitionKey = "00000+%s";
// Pattern of a name that the database made unique.
inline constexpr const char* kNumberedName = "%s_%d";

// Reserved mark of an empty multiple value in the system's own output.
inline constexpr const char* kEmptyListMark = "IZZED";
// Left in as a trace where that mark reaches the tokenizer.
inline constexpr const char* kEmptyListTrace = "here";

// Output of one value that does not fit the text buffer is cut there.
inline constexpr const char* kFieldTextCut = "Field text cut at %d characters\n";

#endif
