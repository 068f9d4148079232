// What the C library's files leave to the platform: names beyond ASCII, positions beyond 2 GB, cutting.
// Every platform implements exactly this.
#ifndef PORT_FILE_H_
#define PORT_FILE_H_

#include <cstdint>
#include <cstdio>
#include <string>

namespace fdo::port {

// As fopen, with the name in UTF-8. Errors: null.
std::FILE* OpenFile(std::string const& name, char const* mode);

// Units: bytes from the start of the file. Errors: -1 where there is no position, as in a pipe.
std::int64_t FilePosition(std::FILE* file);

// Errors: false.
bool SetFilePosition(std::FILE* file, std::int64_t position);

// Makes the file end at that position. Errors: false.
bool CutFile(std::FILE* file, std::int64_t length);

// Whether a file can be removed or renamed while a program has it open.
bool OpenFilesCanMove();

// Whether the file, named in wide text, exists and this process has the right to write it.
bool MayWriteFile(wchar_t const* name);

// The value of an environment variable in UTF-8. Errors: empty when it is not set.
std::string EnvironmentVariable(char const* name);

}  // namespace fdo::port

#endif  // PORT_FILE_H_
