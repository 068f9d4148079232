#ifndef TOOLS_QUILLON_INTERRUPTION_H_
#define TOOLS_QUILLON_INTERRUPTION_H_

#include <utility>
#include <vector>

namespace fdo::tool {

// While one lives, the requests to end the program (an interrupt from the keyboard, a polite kill, the
// terminal that closes) are remembered instead of obeyed, so that work under way can clean up behind itself.
// Requires: one at a time.
class InterruptionWatch {
 public:
  InterruptionWatch();
  InterruptionWatch(InterruptionWatch const&) = delete;
  InterruptionWatch& operator=(InterruptionWatch const&) = delete;
  ~InterruptionWatch();

  bool Happened() const;

 private:
  using Handler = void (*)(int);

  std::vector<std::pair<int, Handler>> old_;  // by signal
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_INTERRUPTION_H_
