// Every text that the value and field classes print or throw.
#ifndef ZN_FIELD_MESSAGES_H
#define ZN_FIELD_MESSAGES_H

// Written ahead of the message of every exception that is thrown.
inline constexpr const char* kThrowingPrefix = "\nThrowing Exception: ";

// Bounds of the multiple-value classes; the first argument is the class name.
// The spacing differs on purpose between the forms and must stay as it is.
inline constexpr const char* kGet1ValueBounds = "Array index out of bounds in %s.get1Value():  index=%d";
inline constexpr const char* kSet1ValueBoundsArray = "Array index out of bounds in %s.set1Value(): index=%d";
inline constexpr const char* kSet1ValueBoundsList = "Array index out of bounds in %s.set1Value():  index=%d";
inline constexpr const char* kInsertValueBounds = "Array index out of bounds in %s.insertValue(): index=%d";
inline constexpr const char* kSetValueBounds = "Array index out of bounds in %s.setValue():  size=%d";

// Printed names of the field types 20 to 39, padded to 11 columns.
inline constexpr const char* kFieldTypeNames[20] = {
    "SFBool     ", "SFColor    ", "SFFloat    ", "SFImage    ", "SFInt32    ",
    "SFNode     ", "SFRotation ", "SFString   ", "SFTime     ", "SFVec2f    ",
    "SFVec3f    ", "MFColor    ", "MFFloat    ", "MFInt32    ", "MFNode     ",
    "MFRotation ", "MFString   ", "MFTime     ", "MFVec2f    ", "MFVec3f    ",
};
// Printed names of the data kinds 0 to 2, padded to 13 columns.
inline constexpr const char* kDataTypeNames[3] = {"field        ", "eventOut     ", "eventIn      "};

// Reserved mark of an empty multiple value in the system's own output.
inline constexpr const char* kEmptyListMark = "IZZED";
// Left in as a trace where that mark reaches the tokenizer.
inline constexpr const char* kEmptyListTrace = "here";

// Output of one value that does not fit the text buffer is cut there.
inline constexpr const char* kFieldTextCut = "Field text cut at %d characters\n";

// What the memory limit refuses: a list of this many values.
inline constexpr const char* kListOverLimit = "A list of %zu values";

// A null entry in a printed list of fields.
inline constexpr const char* kNullFieldLine = "\tNULL";

#endif
