// Every text that the script interfaces print, and the fixed words of the
// language table.
#ifndef SCRIPT_MESSAGES_H
#define SCRIPT_MESSAGES_H

// Language table.
inline constexpr const char* kEndRow = "END";
inline constexpr const char* kCompiledExtension = "so";
inline constexpr const char* kCompiledExtensionAlt = "dll";
inline constexpr const char* kJavaScriptExtension = "js";
inline constexpr const char* kJavaExtension = "class";

// Choosing an interface for a URL list. The warning takes the prefix (or the
// extension) twice.
inline constexpr const char* kInlineCachePattern = "%s/.zncache%02dXXXXXX";
inline constexpr const char* kScriptInterfaceWarning =
    "\n\nSCRIPT INTERFACE WARNING:\n   \"%s\" inline script prefix not registered.  \n"
    "   When running this again you can try commenting\n   nodes with a \"%s\" script prefix.\n\n";
inline constexpr const char* kScriptNameTooLong = "Script URL longer than %d characters skipped: %.60s...\n";
inline constexpr const char* kInlineCacheFailed = "Could not write inline script to %s\n";

// Compiled scripts. Reports are cut to this size.
inline constexpr int kScriptTextSize = 512;
inline constexpr const char* kStaticBuiltin = "STATIC_BUILTIN";
inline constexpr const char* kScriptTypePrefix = "Script";
inline constexpr const char* kInitializeFormat = "%sInitialize";
inline constexpr const char* kCouldNotAddLibrary = " Could not add dynamic library %s.\n";
inline constexpr const char* kWarnCouldNotAddLibrary = "Warning, could not add dynamic library %s.\n";
inline constexpr const char* kCouldNotLocateFunction = "Warning, could not locate function %s.\n";
inline constexpr const char* kScriptInitializeFailed = "Node %s script initialize failed\n";
inline constexpr const char* kCantInsertScript =
    "Couldn't insert node %s script into interface map\n(node initialize() possibly called twice?)";
inline constexpr const char* kShutdownNoScript = "shutdown, couldn't find script for node %s\n";
inline constexpr const char* kEventsProcessedNoScript = "eventsProcessed, couldn't find script for node %s\n";
inline constexpr const char* kRestoreNoScript = "restore, couldn't find script for node %s\n";

#endif
