#include <windows.h>

#include "port/dynamic_library.h"

namespace fdo::port {

void* LoadLibraryByName(char const* fileName) { return reinterpret_cast<void*>(LoadLibraryA(fileName)); }

void* FindSymbol(void* library, char const* name) {
  return reinterpret_cast<void*>(GetProcAddress(reinterpret_cast<HMODULE>(library), name));
}

}  // namespace fdo::port
