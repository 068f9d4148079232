#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "testing/scratch_directory.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {

namespace {

std::string ReadFile(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

std::string Quoted(std::string const& text) {
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

ProgramResult RunQuillon(std::vector<std::string> const& arguments) {
  std::string line = "exec \"$QUILLON\"";
  for (auto const& argument : arguments) line += " " + Quoted(argument);
  return RunShell(line);
}

ProgramResult RunShell(std::string const& line) {
  ScratchDirectory const scratch;
  auto const out = scratch.Path() / "out", err = scratch.Path() / "err";
  std::string const command = "QUILLON=" + Quoted(QUILLON_PROGRAM) + "; export QUILLON; { " + line +
                              "\n} </dev/null >" + Quoted(out.string()) + " 2>" + Quoted(err.string());
  int const status = std::system(command.c_str());
  int const code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return {code, ReadFile(out), ReadFile(err)};
}

}  // namespace fdo::tool
