#include <dlfcn.h>

#include "port/dynamic_library.h"

namespace fdo::port {

void* LoadLibraryByName(char const* fileName) {
  // RTLD_NODELETE: functions of the library may be bound for the life of the process.
  return dlopen(fileName, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
}

void* FindSymbol(void* library, char const* name) { return dlsym(library, name); }

}  // namespace fdo::port
