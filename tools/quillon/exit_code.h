#ifndef TOOLS_QUILLON_EXIT_CODE_H_
#define TOOLS_QUILLON_EXIT_CODE_H_

namespace fdo::tool {

// What the program tells the shell.
enum class ExitCode : int {
  kDone = 0,
  kFailed = 1,      // the request was understood and could not be fulfilled
  kUsage = 2,       // the command line makes no sense
  kCannotOpen = 3,  // a source cannot be opened
  kPartlyDone = 4,  // there is a result, and it lacks rows or holds changed values
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_EXIT_CODE_H_
