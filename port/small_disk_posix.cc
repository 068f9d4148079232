#ifdef __linux__
#include <sched.h>
#include <sys/mount.h>
#endif

#include "port/small_disk.h"

namespace fdo::port {

#ifdef __linux__

namespace {

// From then on what this thread mounts is nobody else's, and goes with the program however it ends.
bool HasMountsOfItsOwn() {
  static bool const has =
      unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  return has;
}

}  // namespace

SmallDisk::SmallDisk(std::string const& folder, std::size_t bytes) : folder_(folder), isThere_(false) {
  if (!HasMountsOfItsOwn()) return;
  std::string const size = "size=" + std::to_string(bytes);
  isThere_ = mount("quillon", folder_.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

SmallDisk::~SmallDisk() {
  if (isThere_) umount(folder_.c_str());
}

bool SmallDisk::SetReadOnly(bool readOnly) {
  return mount(nullptr, folder_.c_str(), nullptr, MS_REMOUNT | (readOnly ? MS_RDONLY : 0), nullptr) == 0;
}

#else

SmallDisk::SmallDisk(std::string const& folder, std::size_t) : folder_(folder), isThere_(false) {}

SmallDisk::~SmallDisk() = default;

bool SmallDisk::SetReadOnly(bool) { return false; }

#endif

}  // namespace fdo::port
