// SPDX-License-Identifier: MIT
// Opening while memory is exhausted: each allocation of the call is refused in turn, alone and with
// all that follow it.
#include <quarnfc/internet.h>
#include <quarnfc/internet_file.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "tests/failing_memory/door.h"
#include "tests/net/fake_internet.h"

namespace {

using failing::Refusal;

long CallsThatStartWith(const std::string& text) {
  const auto& calls = TheFakeInternet().calls;
  return std::count_if(calls.begin(), calls.end(),
                       [&](const std::string& call) { return call.starts_with(text); });
}

// Runs open with its n-th allocation refused, for every n, until it succeeds. It returns null, and
// the handle that the platform opened, which its call names, is closed once and no other is.
template <class Open>
void ExpectNullAndNoHandleLost(const std::string& call, const std::string& closing, Open open) {
  for (const Refusal refusal : {Refusal::kOnce, Refusal::kEver}) {
    int refused = 0;
    for (bool opened = false; !opened; ++refused) {
      ASSERT_LT(refused, 100);
      TheFakeInternet().calls.clear();
      failing::CloseDoor(refused + 1, refusal);
      const auto object = open();
      failing::OpenDoor();
      opened = failing::RefusedCount() == 0;
      EXPECT_EQ(object != nullptr, opened) << refused;
      const long handles = CallsThatStartWith(call);
      EXPECT_EQ(CallsThatStartWith("close "), opened ? 0 : handles) << refused;
      EXPECT_EQ(CallsThatStartWith(closing), opened ? 0 : handles) << refused;
    }
    // The object, and its handle's place in the registry.
    EXPECT_GT(refused, 2);
  }
}

TEST(ExhaustedMemory, OpenUrlReturnsNullAndClosesWhatItOpened) {
  CQNInternetSession session("agent");
  ExpectNullAndNoHandleLost("url ", "close 5678", [&] {
    return std::unique_ptr<CQNHttpFile>(session.OpenURL("http://h.test/p?q"));
  });
}

TEST(ExhaustedMemory, GetHttpConnectionReturnsNullAndClosesWhatItOpened) {
  CQNInternetSession session("agent");
  ExpectNullAndNoHandleLost("connect ", "close 4321", [&] {
    return std::unique_ptr<CQNHttpConnection>(session.GetHttpConnection("h.test", 81));
  });
}

TEST(ExhaustedMemory, OpenRequestReturnsNullAndClosesWhatItOpened) {
  CQNInternetSession session("agent");
  const std::unique_ptr<CQNHttpConnection> connection(session.GetHttpConnection("h.test", 81));
  ExpectNullAndNoHandleLost("request ", "close 5678", [&] {
    return std::unique_ptr<CQNHttpFile>(connection->OpenRequest("GET", "/p"));
  });
}

// A session is no pointer that could be null.
TEST(ExhaustedMemory, ASessionThatCannotBeRegisteredThrowsAndClosesItsHandle) {
  failing::CloseDoor(1, Refusal::kOnce);
  EXPECT_THROW(CQNInternetSession("agent"), std::bad_alloc);
  failing::OpenDoor();
  EXPECT_EQ(TheFakeInternet().calls.back(), "close 1234");
}

TEST(ExhaustedMemory, AReadBufferThatCannotBeHadChangesNothing) {
  TheFakeInternet().response = "0123456789";
  FakeFile file(1);
  char bytes[10];
  EXPECT_EQ(file.SetReadBufferSize(4), 1);
  EXPECT_EQ(file.Read(bytes, 2), 2u);
  failing::CloseDoor(1, Refusal::kOnce);
  EXPECT_EQ(file.SetReadBufferSize(1000), 0);
  failing::OpenDoor();
  EXPECT_EQ(std::string(bytes, file.Read(bytes, 2)), "23");
  EXPECT_EQ(file.SetReadBufferSize(1000), 1);
}

TEST(ExhaustedMemory, LinesAreNotReadWithoutTheirBuffer) {
  TheFakeInternet().response = "line\n";
  FakeFile file(1);
  CQNString line;
  char bytes[10];
  failing::CloseDoor(1, Refusal::kOnce);
  EXPECT_EQ(file.ReadString(line), 0);
  failing::CloseDoor(1, Refusal::kOnce);
  EXPECT_EQ(file.ReadString(bytes, sizeof(bytes)), nullptr);
  failing::OpenDoor();
  EXPECT_EQ(file.ReadString(line), 1);
  EXPECT_EQ(std::string(static_cast<const char*>(line)), "line");
}

TEST(ExhaustedMemory, NewThatDoesNotThrowGivesNull) {
  failing::CloseDoor(1, Refusal::kEver);
  auto* const session = new (std::nothrow) CQNInternetSession("agent");
  auto* const connection = new (std::nothrow) CQNHttpConnection(nullptr, "h.test", 81);
  auto* const file = new (std::nothrow) FakeFile(1);
  failing::OpenDoor();
  EXPECT_EQ(session, nullptr);
  EXPECT_EQ(connection, nullptr);
  EXPECT_EQ(file, nullptr);
}

}  // namespace
