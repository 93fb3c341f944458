// SPDX-License-Identifier: MIT
// The program qn, interrupted during a transfer.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "tests/net/scripted_server.h"
#include "tests/tools/interruptible_qn.h"

namespace {

TEST(QnHttpInterrupt, LeavesNoFileAndEndsWith130) {
  ScriptedServer server([](ServerConnection& connection) {
    connection.ReadRequest();
    connection.Send("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\nthe start");
    connection.ReadSome(1);
  });
  const std::filesystem::path folder = testing::TempDir() + "qn_http_interrupt_test";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  InterruptibleQn qn({"http", "get", "-o", (folder / "target").string(), server.Url("/")});
  while (std::filesystem::is_empty(folder) && qn.Runs()) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  ASSERT_TRUE(qn.Runs());
  qn.Interrupt();
  EXPECT_EQ(qn.Wait(), 130);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

}  // namespace
