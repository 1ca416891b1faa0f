// Every text that the load entry and the console functions print.
#ifndef LOADER_MESSAGES_H
#define LOADER_MESSAGES_H

inline constexpr const char* kUncaughtException = "Exception not caught.  The load ends.\n";
inline constexpr const char* kOutOfMemory = "out of memory";

// Why a scene did not come back whole, as a load's result says it.
inline constexpr const char* kReasonNotFound = "not found";
inline constexpr const char* kReasonDirectory = "a directory, not a file";
inline constexpr const char* kReasonNotAFile = "a device, pipe or socket, not a file";
inline constexpr const char* kReasonNameTooLong = "file name too long";
inline constexpr const char* kReasonVrml1 = "a VRML 1.0 file";
inline constexpr const char* kReasonOutOfMemory = "out of memory";
inline constexpr const char* kReasonException = "an exception nobody caught";
inline constexpr const char* kReasonParseError = "a syntax error stopped the parse";
inline constexpr const char* kReasonNoTextFile = "the text could not be stored for the parse";

// A world given as text: its private file in the temporary directory, and
// the name it stands for when the caller gives none.
inline constexpr const char* kMemoryFilePattern = "/.znmemoryXXXXXX";
inline constexpr const char* kMemoryBaseName = "memory.wrl";

// The VRML 1.0 refusal: the file name, then where to find translators.
inline constexpr const char* kVrml1Header = "#VRML V1.0 ascii";
inline constexpr const char* kVrml1Refusal =
    "%s is a VRML 1.0 file.  Please look at "
    "the section \"VRML 1.0 files\" of the loader's README"
    " for VRML 1.0 to VRML 2.0 translators.\n\n\n";

inline constexpr const char* kBannerFormat =
    "wrlLoader %s: VRML 97 loader for the cs scene-graph toolkit (built %s)\n";

// Names longer than the loader's fixed buffers are refused, not cut.
inline constexpr const char* kNameTooLong = "File name too long (at most %d bytes): %.80s...";
inline constexpr const char* kSearchPathTooLong =
    "OPTPATH longer than %d bytes: only its elements within that length are searched";

#endif
