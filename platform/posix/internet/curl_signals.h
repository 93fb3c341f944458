// SPDX-License-Identifier: MIT
// Broken pipes without signals.
#ifndef QUARNFC_PLATFORM_POSIX_INTERNET_CURL_SIGNALS_H_
#define QUARNFC_PLATFORM_POSIX_INTERNET_CURL_SIGNALS_H_

#include <csignal>
#include <ctime>

namespace quarnfc::internet {

// Keeps SIGPIPE from this thread while libcurl runs on it: writing to a connection that the server
// has closed must not end a host that knows nothing of sockets. Signals of the host stay its own.
//
// Four system calls, which are spared where they are not needed: what libcurl itself sends raises
// no signal; what the TLS library sends may.
class QuietPipes {
 public:
  explicit QuietPipes(bool needed) : needed_(needed) {
    if (!needed_) return;
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    sigset_t pending;
    sigpending(&pending);
    was_pending_ = sigismember(&pending, SIGPIPE) == 1;
    pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
  }
  ~QuietPipes() {
    if (!needed_) return;
    const timespec at_once = {};
    // One that came meanwhile is ours to take away.
    if (!was_pending_) sigtimedwait(&pipe_, nullptr, &at_once);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  QuietPipes(const QuietPipes&) = delete;
  QuietPipes& operator=(const QuietPipes&) = delete;

 private:
  const bool needed_;
  sigset_t pipe_;
  sigset_t before_;
  bool was_pending_ = false;
};

}  // namespace quarnfc::internet

#endif  // QUARNFC_PLATFORM_POSIX_INTERNET_CURL_SIGNALS_H_
