#include "port/console.h"
#include "tools/quillon/program.h"

int main(int argc, char** argv) {
  fdo::port::PrepareStandardStreams();
  auto const code = fdo::tool::RunProgram(fdo::port::ProgramArguments(argc, argv), stdout, stderr,
                                          fdo::port::IsTerminal(stderr));
  return static_cast<int>(code);
}
