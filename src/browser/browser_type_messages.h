// Texts that the making of types prints.
#ifndef ZN_BROWSER_TYPE_MESSAGES_H
#define ZN_BROWSER_TYPE_MESSAGES_H

inline constexpr const char* kFailedInsertingType = "failed inserting node type: %s";
inline constexpr const char* kFieldListNull = "Field list is NULL!";
// A name that begins so is a Script's own type, unless it is Script itself.
inline constexpr const char* kScriptTypePrefix = "Script";
// URL texts that stand for no implementation.
inline constexpr const char* kNoURLList = "[]";

#endif
