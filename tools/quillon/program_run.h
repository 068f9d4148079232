// Runs the built program as a shell does, for tests.
#ifndef TOOLS_QUILLON_PROGRAM_RUN_H_
#define TOOLS_QUILLON_PROGRAM_RUN_H_

#include <string>
#include <vector>

namespace fdo::tool {

struct ProgramResult {
  int code;  // 128 and the signal's number when a signal ended it; -1 when it did not start
  std::string out, err;
};

// Runs the program with those arguments, standard input empty.
ProgramResult RunQuillon(std::vector<std::string> const& arguments);

// Runs a line of the shell in which $QUILLON is the program. There is no such shell on Windows.
ProgramResult RunShell(std::string const& line);

// A word of that shell that stands for the text.
std::string Quoted(std::string const& text);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_PROGRAM_RUN_H_
