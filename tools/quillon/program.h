#ifndef TOOLS_QUILLON_PROGRAM_H_
#define TOOLS_QUILLON_PROGRAM_H_

#include <cstdio>
#include <string>
#include <vector>

#include "tools/quillon/exit_code.h"

namespace fdo::tool {

// Runs the program with those arguments. Data and help go to out, everything else to err.
// Errors: none is thrown; each ends with a message and its code.
ExitCode RunProgram(std::vector<std::string> arguments, std::FILE* out, std::FILE* err, bool errIsTerminal);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_PROGRAM_H_
