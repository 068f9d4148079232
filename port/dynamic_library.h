// Shared libraries that are bound while the program runs. Every platform implements exactly this.
#ifndef PORT_DYNAMIC_LIBRARY_H_
#define PORT_DYNAMIC_LIBRARY_H_

namespace fdo::port {

// Loads the library of that file name, looked for where the platform's loader looks; a name with a
// directory is taken as it is. A library once loaded stays until the process ends.
// Errors: null; nothing is printed.
// Threads: any.
void* LoadLibraryByName(char const* fileName);

// The address of an exported function or variable.
// Requires: library is a result of LoadLibraryByName that is not null.
// Errors: null when the library does not export that name.
void* FindSymbol(void* library, char const* name);

}  // namespace fdo::port

#endif  // PORT_DYNAMIC_LIBRARY_H_
