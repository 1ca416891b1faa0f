// Runs a program of the build as a user runs it, for the tests of wrlload
// and of what it writes.
#ifndef WRL_RUN_PROGRAM_H
#define WRL_RUN_PROGRAM_H

#include <string>
#include <vector>

namespace wrltest {

struct ProgramRun {
    int status = -1;  // the exit status; -1 when it did not exit
    std::string out, err;
};

// Runs `program` with `arguments`, no shell between, standard input empty,
// and answers what it wrote on each stream.
ProgramRun runProgram(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace wrltest

#endif
