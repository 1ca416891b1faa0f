// The grammar's trace (yydebug) and wording. The generated parser prints
// its trace through YYFPRINTF and names its failures through YY_; both are
// pointed here, so that what the user sees is this system's own wording:
// "parse error", "parser stack overflow", and trace lines such as
// "Reducing via rule %d (line %d), ".
#ifndef PARSER_TRACE_H
#define PARSER_TRACE_H

#include <cstdio>

// Takes one trace call of the generated parser and prints its counterpart.
int znGrammarTrace(std::FILE* out, const char* format, ...);
// The generator's message texts mapped onto the system's own.
const char* znGrammarWording(const char* text);
// The token number the lexer returned last, as the trace names it.
void znGrammarTraceToken(int token);

#endif
