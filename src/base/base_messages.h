// Every text that the report functions print.
#ifndef BASE_MESSAGES_H
#define BASE_MESSAGES_H

inline constexpr const char* kMessageFormat = "\nMessage:  %s\n";
inline constexpr const char* kAlertFormat = "\nAlert:  %s\n";
inline constexpr const char* kConfirmFormat = "\nConfirm:  %s\n";
inline constexpr const char* kConfirmChoices = "1)Yes    2)No\n";
inline constexpr const char* kConfirmAsk = "? ";
inline constexpr const char* kPromptFormat = "\nPrompt:  %s\n";
inline constexpr const char* kPromptQuestion = "Do you wish to provide a different name?\n";
inline constexpr const char* kPromptChoices = "1)Yes  2)No\n: ";
inline constexpr const char* kPromptNewName = "New Name: ";
// A question that is not put, as no one may answer it.
inline constexpr const char* kConfirmNotAsked = "Not asked: the answer is No.\n";
inline constexpr const char* kPromptNotAsked = "Not asked: no other name is given.\n";

// The memory limit of a load (zn_memory_budget.h): its variable, in
// megabytes, and the report of the first cost that would pass it, with
// what it is, what it needs, the limit and what was spent before it; the
// sizes in the units of kSizeUnits, with one decimal.
inline constexpr const char* kMemoryLimitVariable = "ZN_MEMORY_LIMIT";
inline constexpr const char* kMemoryLimitReached =
    "%s would need %s, past the memory limit of %s (%s; %s spent): "
    "it is left out, and so is whatever else would pass the limit.\n";
inline constexpr const char* kSizeUnits[] = {"bytes", "KB", "MB", "GB", "TB"};

#endif
