#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <new>

#include "port/guarded_bytes.h"

namespace fdo::port {

GuardedBytes::GuardedBytes(std::size_t capacity) {
  SYSTEM_INFO system;
  GetSystemInfo(&system);
  std::size_t const page = system.dwPageSize;
  std::size_t const usable = (capacity + page - 1) / page * page;
  mapped_ = usable + page;
  void* const mapping = VirtualAlloc(nullptr, mapped_, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (mapping == nullptr) throw std::bad_alloc();
  base_ = static_cast<unsigned char*>(mapping);
  guard_ = base_ + usable;
  DWORD before = 0;
  if (VirtualProtect(guard_, page, PAGE_NOACCESS, &before) == 0) {
    VirtualFree(base_, 0, MEM_RELEASE);
    throw std::bad_alloc();
  }
}

GuardedBytes::~GuardedBytes() { VirtualFree(base_, 0, MEM_RELEASE); }

}  // namespace fdo::port
