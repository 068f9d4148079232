#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "port/child_process.h"

extern char** environ;

namespace fdo::port {
namespace {

class SpawnActions {
 public:
  SpawnActions() { posix_spawn_file_actions_init(&actions_); }
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }
  SpawnActions(SpawnActions const&) = delete;
  SpawnActions& operator=(SpawnActions const&) = delete;

  posix_spawn_file_actions_t* Get() { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

std::string ReadToEnd(int descriptor) {
  std::string text;
  char buffer[4096];
  for (;;) {
    ssize_t const length = read(descriptor, buffer, sizeof(buffer));
    if (length > 0) {
      text.append(buffer, static_cast<std::size_t>(length));
    } else if (length == 0 || errno != EINTR) {
      return text;
    }
  }
}

int WaitForExit(pid_t child) {
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The interface takes pointers to char that it does not write through.
std::vector<char*> ArgumentsOf(std::string const& program, std::vector<std::string> const& arguments) {
  std::vector<char*> argv{const_cast<char*>(program.c_str())};
  for (std::string const& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  return argv;
}

}  // namespace

ChildResult RunChild(std::string const& program, std::vector<std::string> const& arguments) {
  int ends[2];
  if (pipe(ends) != 0) return {false, -1, ""};
  // Only the copy that becomes the standard output stays open in the child.
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  fcntl(ends[1], F_SETFD, FD_CLOEXEC);
  SpawnActions actions;
  posix_spawn_file_actions_adddup2(actions.Get(), ends[1], STDOUT_FILENO);

  std::vector<char*> const argv = ArgumentsOf(program, arguments);
  pid_t child = 0;
  bool const started =
      posix_spawn(&child, program.c_str(), actions.Get(), nullptr, argv.data(), environ) == 0;
  close(ends[1]);
  ChildResult result{started, -1, started ? ReadToEnd(ends[0]) : ""};
  close(ends[0]);
  if (started) result.exitCode = WaitForExit(child);
  return result;
}

BesideChild::BesideChild(std::string const& program, std::vector<std::string> const& arguments) {
  std::vector<char*> const argv = ArgumentsOf(program, arguments);
  pid_t child = 0;
  started_ = posix_spawn(&child, program.c_str(), nullptr, nullptr, argv.data(), environ) == 0;
  if (started_) process_ = child;
}

BesideChild::~BesideChild() { Kill(); }

bool BesideChild::Kill() {
  if (process_ == 0) return false;
  auto const child = static_cast<pid_t>(process_);
  process_ = 0;
  kill(child, SIGKILL);
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return false;
  }
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

}  // namespace fdo::port
