#include <dlfcn.h>
#include <stdlib.h>

#include "port/dynamic_library.h"

namespace fdo::port {

char const kLibraryPrefix[] = "lib";
char const kLibrarySuffix[] = ".so";

void* LoadLibraryByName(char const* fileName) {
  // RTLD_NODELETE: functions of the library may be bound for the life of the process.
  return dlopen(fileName, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
}

std::string LoadFailure() {
  char const* message = dlerror();
  return message == nullptr ? std::string() : std::string(message);
}

void* FindSymbol(void* library, char const* name) { return dlsym(library, name); }

std::string LibraryPathOf(void const* address) {
  Dl_info info = {};
  if (dladdr(address, &info) == 0 || info.dli_fname == nullptr) return std::string();
  // The loader gives the name that the library was asked for by, which may be relative.
  char* absolute = realpath(info.dli_fname, nullptr);
  std::string const path = absolute == nullptr ? info.dli_fname : absolute;
  free(absolute);
  return path;
}

}  // namespace fdo::port
