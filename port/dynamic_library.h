// Shared libraries that are bound while the program runs. Every platform implements exactly this.
#ifndef PORT_DYNAMIC_LIBRARY_H_
#define PORT_DYNAMIC_LIBRARY_H_

#include <string>

namespace fdo::port {

// Loads the library of that file name (UTF-8), looked for where the platform's loader looks; a name with
// a directory is taken as it is. A library once loaded stays until the process ends.
// Errors: null; nothing is printed.
// Threads: any.
void* LoadLibraryByName(char const* fileName);

// Why the last LoadLibraryByName on this thread gave null, in the platform's words (UTF-8); to be asked
// right after it.
std::string LoadFailure();

// The address of an exported function or variable.
// Requires: library is a result of LoadLibraryByName that is not null.
// Errors: null when the library does not export that name.
void* FindSymbol(void* library, char const* name);

// The path (UTF-8) of the library or program that holds the function or variable at that address.
// Errors: empty when it is in none.
std::string LibraryPathOf(void const* address);

// What completes a base name to the file name of a library: lib<name>.so, <name>.dll.
extern char const kLibraryPrefix[];
extern char const kLibrarySuffix[];

}  // namespace fdo::port

#endif  // PORT_DYNAMIC_LIBRARY_H_
