// Every text that node types and nodes print or throw.
#ifndef ZN_NODE_MESSAGES_H
#define ZN_NODE_MESSAGES_H

inline constexpr const char* kInvalidFieldID = "Invalid field ID = %d";
inline constexpr const char* kInvalidFieldName = "Invalid field name = %s";
inline constexpr const char* kInvalidEventInName = "Invalid eventIn name = %s";
inline constexpr const char* kInvalidEventOutName = "Invalid eventOut name = %s";
inline constexpr const char* kInvalidExposedFieldName = "Invalid exposedField name = %s";

inline constexpr const char* kNodeTypeNeedsName = "ERROR: Must specify name for a node type\n";
inline constexpr const char* kNotSupportedMark = "\"NOT_SUPPORTED\"";
inline constexpr const char* kNotSupported = "%s is not supported.";
inline constexpr const char* kSupportMsgHead =
    "%s nodes not supported in this version.\nCheck your $ZNBUILTINS file, or visit ";
// Where a user reads which node types have classes and how to add one.
inline constexpr const char* kSupportPage = "the section \"Node support\" of the loader's README";
inline constexpr const char* kSupportMsgTail = " \nfor node support information.";
inline constexpr const char* kSkippingInvalidNode = "Skipping node with Invalid ID.  ID=%d";

inline constexpr const char* kNodeNeedsParts = "ERROR: Must a name, nodeType, and browser for a new node\n";
inline constexpr const char* kCantAddData = "Couldn't add node data with value %s";
inline constexpr const char* kCantAddReference = "Couldn't add node data reference";

#endif
