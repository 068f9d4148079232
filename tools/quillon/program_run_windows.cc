#include <windows.h>

#include <fstream>
#include <iterator>

#include "port/utf16_windows.h"
#include "testing/scratch_directory.h"
#include "tools/quillon/program_run.h"

namespace fdo::tool {
namespace {

// A file that a child may use as one of its streams.
class ChildStream {
 public:
  ChildStream(std::filesystem::path const& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    handle_ = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable, disposition,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
  }
  ~ChildStream() { CloseHandle(handle_); }
  ChildStream(ChildStream const&) = delete;
  ChildStream& operator=(ChildStream const&) = delete;

  HANDLE Handle() const { return handle_; }

 private:
  HANDLE handle_;
};

std::string ReadFile(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The program reads back every argument as it was: backslashes count where they stand before a quotation
// mark.
std::string QuotedArgument(std::string const& text) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (char const c : text) {
    if (c == '"') quoted.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, '\\') + "\"";
}

int ExitCode(std::string const& line, ChildStream const& in, ChildStream const& out, ChildStream const& err) {
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = in.Handle();
  startup.hStdOutput = out.Handle();
  startup.hStdError = err.Handle();
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, port::Utf16FromUtf8(line).data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                      &startup, &process)) {
    return -1;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(code);
}

}  // namespace

ProgramResult RunQuillon(std::vector<std::string> const& arguments) {
  std::string line = QuotedArgument(QUILLON_PROGRAM);
  for (auto const& argument : arguments) line += " " + QuotedArgument(argument);
  ScratchDirectory const scratch;
  auto const outPath = scratch.Path() / "out", errPath = scratch.Path() / "err";
  int code = -1;
  {
    ChildStream const in("NUL", GENERIC_READ, OPEN_EXISTING);
    ChildStream const out(outPath, GENERIC_WRITE, CREATE_ALWAYS), err(errPath, GENERIC_WRITE, CREATE_ALWAYS);
    code = ExitCode(line, in, out, err);
  }
  return {code, ReadFile(outPath), ReadFile(errPath)};
}

}  // namespace fdo::tool
