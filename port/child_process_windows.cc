#include <windows.h>

#include "port/child_process.h"
#include "port/utf16_windows.h"

namespace fdo::port {
namespace {

std::string ReadToEnd(HANDLE pipe) {
  std::string text;
  char buffer[4096];
  DWORD length = 0;
  while (ReadFile(pipe, buffer, sizeof(buffer), &length, nullptr) && length > 0) text.append(buffer, length);
  return text;
}

// Begins the program; its streams are as startup says, or this process's.
bool Begin(std::string const& program, std::vector<std::string> const& arguments, STARTUPINFOW& startup,
           PROCESS_INFORMATION& process) {
  std::string commandLine = "\"" + program + "\"";
  for (std::string const& argument : arguments) commandLine += " \"" + argument + "\"";
  startup.cb = sizeof(startup);
  return CreateProcessW(Utf16FromUtf8(program).c_str(), Utf16FromUtf8(commandLine).data(), nullptr, nullptr,
                        TRUE, 0, nullptr, nullptr, &startup, &process) != 0;
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

  STARTUPINFOW startup{};
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  startup.hStdOutput = writeEnd;
  startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  result.started = Begin(program, arguments, startup, process);
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

BesideChild::BesideChild(std::string const& program, std::vector<std::string> const& arguments) {
  STARTUPINFOW startup{};
  PROCESS_INFORMATION process{};
  started_ = Begin(program, arguments, startup, process);
  if (!started_) return;
  CloseHandle(process.hThread);
  process_ = reinterpret_cast<std::intptr_t>(process.hProcess);
}

BesideChild::~BesideChild() { Kill(); }

bool BesideChild::Kill() {
  if (process_ == 0) return false;
  HANDLE const process = reinterpret_cast<HANDLE>(process_);
  process_ = 0;
  bool const running = TerminateProcess(process, 1) != 0;
  WaitForSingleObject(process, INFINITE);
  CloseHandle(process);
  return running;
}

}  // namespace fdo::port
