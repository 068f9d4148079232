// Runs other programs. Every platform implements exactly this.
#ifndef PORT_CHILD_PROCESS_H_
#define PORT_CHILD_PROCESS_H_

#include <string>
#include <vector>

namespace fdo::port {

struct ChildResult {
  bool started;
  int exitCode;        // -1 when it did not start or was ended from outside
  std::string output;  // what it wrote to its standard output
};

// Runs a program to its end. program is a path, with its directory; arguments do not repeat it. The
// child shares the standard input and error streams.
// Requires: no argument contains a quotation mark, nor ends with a backslash.
// Threads: any.
ChildResult RunChild(std::string const& program, std::vector<std::string> const& arguments);

}  // namespace fdo::port

#endif  // PORT_CHILD_PROCESS_H_
