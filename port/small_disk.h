// A disk of a chosen size, to show what happens when it is full or cannot be written. Every platform
// implements exactly this.
#ifndef PORT_SMALL_DISK_H_
#define PORT_SMALL_DISK_H_

#include <cstddef>
#include <string>

namespace fdo::port {

// An empty disk in memory in place of what a folder holds, until the object ends. Only this program sees it.
// Not every platform has one, and not every user may make one: ask IsThere.
// Requires: at the end no file on it is open. Threads: that which made it, and those begun later by it.
class SmallDisk {
 public:
  // folder is UTF-8 and exists.
  SmallDisk(std::string const& folder, std::size_t bytes);
  ~SmallDisk();
  SmallDisk(SmallDisk const&) = delete;
  SmallDisk& operator=(SmallDisk const&) = delete;

  bool IsThere() const { return isThere_; }

  // Nobody can write to it, root included, or all can again.
  // Requires: IsThere(), and no file is open for writing. Errors: false; it stays as it was.
  bool SetReadOnly(bool readOnly);

 private:
  std::string folder_;
  bool isThere_;
};

}  // namespace fdo::port

#endif  // PORT_SMALL_DISK_H_
