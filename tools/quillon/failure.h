#ifndef TOOLS_QUILLON_FAILURE_H_
#define TOOLS_QUILLON_FAILURE_H_

#include <string>

#include "tools/quillon/exit_code.h"

namespace fdo::tool {

// Thrown, by value, by whatever cannot go on; RunProgram prints the message and ends with the code.
// The message says what is wrong, where, and what to do next, in UTF-8 without a line break at its end.
struct Failure {
  ExitCode code;
  std::string message;
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_FAILURE_H_
