#include <sys/mman.h>
#include <unistd.h>

#include <new>

#include "port/guarded_bytes.h"

namespace fdo::port {

GuardedBytes::GuardedBytes(std::size_t capacity) {
  std::size_t const page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  std::size_t const usable = (capacity + page - 1) / page * page;
  mapped_ = usable + page;
  void* const mapping = mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) throw std::bad_alloc();
  base_ = static_cast<unsigned char*>(mapping);
  guard_ = base_ + usable;
  if (mprotect(guard_, page, PROT_NONE) != 0) {
    munmap(base_, mapped_);
    throw std::bad_alloc();
  }
}

GuardedBytes::~GuardedBytes() { munmap(base_, mapped_); }

}  // namespace fdo::port
