// What the tests of child processes run:
//
//   child_program say TEXT...   writes each text on a line of its own
//   child_program fail          ends with code 3
//   child_program wait          goes on for a minute
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "port/console.h"

int main(int argumentCount, char** argumentValues) {
  fdo::port::PrepareStandardStreams();
  std::vector<std::string> const arguments = fdo::port::ProgramArguments(argumentCount, argumentValues);
  if (arguments.empty() || arguments[0] == "fail") return 3;
  if (arguments[0] == "wait") std::this_thread::sleep_for(std::chrono::minutes(1));
  for (std::size_t i = 1; i < arguments.size(); ++i) std::printf("%s\n", arguments[i].c_str());
}
