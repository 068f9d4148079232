// Runs other programs. Every platform implements exactly this.
#ifndef PORT_CHILD_PROCESS_H_
#define PORT_CHILD_PROCESS_H_

#include <cstdint>
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

// A program that runs beside this one, with its standard streams.
// Threads: one at a time.
class BesideChild {
 public:
  // As RunChild, but does not wait.
  BesideChild(std::string const& program, std::vector<std::string> const& arguments);
  // Ends a program that still runs.
  ~BesideChild();
  BesideChild(BesideChild const&) = delete;
  BesideChild& operator=(BesideChild const&) = delete;

  bool Started() const { return started_; }

  // Ends it at once, whatever it does, without a chance to clean up, and waits until it is gone.
  // Gives: whether it was still running.
  bool Kill();

 private:
  bool started_ = false;
  std::intptr_t process_ = 0;  // how the platform knows it; 0 when it is gone
};

}  // namespace fdo::port

#endif  // PORT_CHILD_PROCESS_H_
