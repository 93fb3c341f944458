// SPDX-License-Identifier: MIT
// The program qn, interrupted during a transfer.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <thread>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/net/scripted_server.h"

namespace {

// Starts qn with the signal as a terminal's programs have it, however the tests were started.
pid_t Start(const std::string& target, const std::string& url) {
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  std::string words[] = {QN_PROGRAM, "http", "get", "-o", target, url};
  char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                       words[4].data(), words[5].data(), nullptr};
  pid_t child = -1;
  const int error = posix_spawn(&child, QN_PROGRAM, nullptr, &attributes, arguments, environ);
  posix_spawnattr_destroy(&attributes);
  return error == 0 ? child : -1;
}

TEST(QnInterrupt, LeavesNoFileAndEndsByTheSignal) {
  ScriptedServer server([](ServerConnection& connection) {
    connection.ReadRequest();
    connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\nthe start");
    connection.ReadSome(1);
  });
  const std::filesystem::path folder = testing::TempDir() + "qn_interrupt_test";
  std::filesystem::create_directory(folder);
  const pid_t child = Start((folder / "target").string(), server.Url("/"));
  ASSERT_GT(child, 0);
  int status = 0;
  while (std::filesystem::is_empty(folder) && waitpid(child, &status, WNOHANG) == 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  EXPECT_FALSE(std::filesystem::is_empty(folder));
  kill(child, SIGINT);
  ASSERT_EQ(waitpid(child, &status, 0), child);
  // Shells call this 130.
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGINT);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

}  // namespace
