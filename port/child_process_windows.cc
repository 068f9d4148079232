#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "port/child_process.h"

namespace fdo::port {
namespace {

std::string ReadToEnd(HANDLE pipe) {
  std::string text;
  char buffer[4096];
  DWORD length = 0;
  while (ReadFile(pipe, buffer, sizeof(buffer), &length, nullptr) && length > 0) text.append(buffer, length);
  return text;
}

}  // namespace

ChildResult RunChild(std::string const& program, std::vector<std::string> const& arguments) {
  ChildResult result{false, -1, ""};
  SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE readEnd = nullptr;
  HANDLE writeEnd = nullptr;
  if (!CreatePipe(&readEnd, &writeEnd, &inheritable, 0)) return result;
  // An inherited read end would keep the pipe open for ever.
  SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);

  std::string commandLine = "\"" + program + "\"";
  for (std::string const& argument : arguments) commandLine += " \"" + argument + "\"";
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  startup.hStdOutput = writeEnd;
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  result.started = CreateProcessA(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                  nullptr, &startup, &process) != 0;
  CloseHandle(writeEnd);
  if (result.started) {
    result.output = ReadToEnd(readEnd);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    if (GetExitCodeProcess(process.hProcess, &exitCode)) result.exitCode = static_cast<int>(exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
  CloseHandle(readEnd);
  return result;
}

}  // namespace fdo::port
