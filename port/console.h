// What a program needs to know about its console and its streams. Every platform implements exactly
// this.
#ifndef PORT_CONSOLE_H_
#define PORT_CONSOLE_H_

#include <cstdio>
#include <string>
#include <vector>

namespace fdo::port {

// Makes the standard streams carry bytes as they are written, and a closed pipe, or a file that may not grow, a
// write error instead of the end of the process.
void PrepareStandardStreams();

bool IsTerminal(std::FILE* stream);

// The arguments behind the program's name as the user typed them, in UTF-8 where the platform knows;
// elsewhere the bytes of argv.
std::vector<std::string> ProgramArguments(int argc, char const* const* argv);

// The signals by which a user or the system asks a program to end, and lets it do so in its own way.
std::vector<int> RequestsToEnd();

// The number of this process, to tell its temporary files from those of another.
unsigned long ProcessId();

}  // namespace fdo::port

#endif  // PORT_CONSOLE_H_
