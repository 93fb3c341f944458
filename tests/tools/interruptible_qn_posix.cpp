// SPDX-License-Identifier: MIT
#include <csignal>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/tools/interruptible_qn.h"

struct InterruptibleQn::State {
  pid_t child = -1;
  int input = -1;
};

namespace {

// With the signal as a terminal's programs have it, however the tests were started.
pid_t Spawn(const std::vector<std::string>& arguments, int input) {
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

  const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "qn";
  std::vector<std::string> words = {program.string()};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  pid_t child = -1;
  const int error =
      posix_spawn(&child, program.c_str(), &actions, &attributes, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  return error == 0 ? child : -1;
}

}  // namespace

// A socket, which reports a program that has gone without a signal.
InterruptibleQn::InterruptibleQn(const std::vector<std::string>& arguments)
    : state_(std::make_unique<State>()) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) return;
  state_->input = ends[0];
  state_->child = Spawn(arguments, ends[1]);
  close(ends[1]);
}

InterruptibleQn::~InterruptibleQn() {
  close(state_->input);
  if (!Runs()) return;
  kill(state_->child, SIGKILL);
  Wait();
}

bool InterruptibleQn::Feed(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = send(state_->input, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// One that has ended stays to be waited for.
bool InterruptibleQn::Runs() const {
  if (state_->child < 0) return false;
  siginfo_t info = {};
  const int result =
      waitid(P_PID, static_cast<id_t>(state_->child), &info, WEXITED | WNOHANG | WNOWAIT);
  return result == 0 && info.si_pid == 0;
}

void InterruptibleQn::Interrupt() { kill(state_->child, SIGINT); }

int InterruptibleQn::Wait() {
  int status = 0;
  const pid_t child = std::exchange(state_->child, -1);
  if (waitpid(child, &status, 0) != child) return -1;
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}
