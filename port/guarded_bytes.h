// Memory whose end is watched, to show that a reader or writer stays inside: the first byte past the
// end cannot be touched without stopping the program. Every platform implements exactly this.
#ifndef PORT_GUARDED_BYTES_H_
#define PORT_GUARDED_BYTES_H_

#include <cstddef>

namespace fdo::port {

class GuardedBytes {
 public:
  // Errors: throws std::bad_alloc.
  explicit GuardedBytes(std::size_t capacity);
  ~GuardedBytes();
  GuardedBytes(GuardedBytes const&) = delete;
  GuardedBytes& operator=(GuardedBytes const&) = delete;

  // The last size bytes before the guard.
  // Requires: size <= the capacity.
  unsigned char* Last(std::size_t size) const { return guard_ - size; }
  unsigned char* End() const { return guard_; }

 private:
  unsigned char* base_;
  unsigned char* guard_;  // start of the page that must not be touched
  std::size_t mapped_;
};

}  // namespace fdo::port

#endif  // PORT_GUARDED_BYTES_H_
