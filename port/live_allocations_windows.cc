#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "port/live_allocations.h"

namespace {

std::atomic<long long> live{0};
std::atomic<long long> soFar{0};
std::atomic<long long> untilFailure{0};

void* CountedMalloc(std::size_t size) {
  if (untilFailure > 0 && --untilFailure == 0) return nullptr;
  void* const memory = std::malloc(size);
  if (memory == nullptr) return nullptr;
  ++live;
  ++soFar;
  return memory;
}

void CountedFree(void* memory) {
  if (memory != nullptr) --live;
  std::free(memory);
}

template <class Part>
Part* At(HMODULE module, std::size_t offset) {
  return reinterpret_cast<Part*>(reinterpret_cast<unsigned char*>(module) + offset);
}

// Where the loader has put the address of a function that the module imports; null when it does not.
void** ImportOf(HMODULE module, char const* function) {
  auto const* const headers =
      At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew));
  std::size_t const imports =
      headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
  if (imports == 0) return nullptr;
  for (auto const* from = At<IMAGE_IMPORT_DESCRIPTOR>(module, imports); from->Name != 0; ++from) {
    auto const* name = At<IMAGE_THUNK_DATA>(module, from->OriginalFirstThunk);
    auto* address = At<void*>(module, from->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      auto const* const entry = At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<char const*>(&entry->Name), function) == 0) return address;
    }
  }
  return nullptr;
}

bool Replace(HMODULE module, char const* function, void* replacement) {
  void** const import = ImportOf(module, function);
  DWORD before = 0;
  if (import == nullptr || VirtualProtect(import, sizeof(*import), PAGE_READWRITE, &before) == 0)
    return false;
  *import = replacement;
  return VirtualProtect(import, sizeof(*import), before, &before) != 0;
}

// An operator new in the program would be that of the program alone. All of them share the C++ library's,
// which takes its memory from malloc.
struct Counting {
  Counting() {
    HMODULE const library = GetModuleHandleW(L"libstdc++-6.dll");
    if (library != nullptr && Replace(library, "malloc", reinterpret_cast<void*>(&CountedMalloc)) &&
        Replace(library, "free", reinterpret_cast<void*>(&CountedFree))) {
      return;
    }
    std::fputs("The allocations of the C++ library cannot be counted.\n", stderr);
    std::abort();
  }
};

Counting const counting;

}  // namespace

long long fdo::port::LiveAllocations() { return live; }
long long fdo::port::AllocationsSoFar() { return soFar; }
bool fdo::port::FailAllocation(long long n) { return untilFailure.exchange(n) == 0; }
