// SPDX-License-Identifier: MIT
#include "net/handle_registry.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

#include "net/status_call.h"
#include "tests/net/fake_internet.h"

namespace {

using quarnfc::net::HandleRegistry;

HINTERNET Handle(unsigned __int64 value) { return reinterpret_cast<HINTERNET>(value); }

CQNInternetSession* Session(unsigned __int64 value) {
  return reinterpret_cast<CQNInternetSession*>(value);
}

// Objects that own handles.
constexpr int kOwners[4] = {};
const void* const kFirst = &kOwners[0];
const void* const kSecond = &kOwners[1];
const void* const kThird = &kOwners[2];
const void* const kCopy = &kOwners[3];

TEST(HandleRegistry, FindsTheSessionOfAHandle) {
  HandleRegistry registry;
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Add(Handle(2), kSecond, nullptr, Session(20));
  EXPECT_EQ(registry.Find(Handle(1)), Session(10));
  EXPECT_EQ(registry.Find(Handle(2)), Session(20));
  registry.SetSession(Handle(2), Session(30));
  EXPECT_EQ(registry.Find(Handle(2)), Session(30));
  registry.Remove(Handle(1), kFirst);
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
}

TEST(HandleRegistry, IgnoresTheNullHandle) {
  HandleRegistry registry;
  registry.Add(nullptr, kFirst, nullptr, Session(10));
  EXPECT_EQ(registry.Find(nullptr), nullptr);
  EXPECT_FALSE(registry.Owns(nullptr, kFirst));
}

TEST(HandleRegistry, AHandleWithoutASessionIsOwnedButReportsToNobody) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, nullptr);
  EXPECT_TRUE(registry.Owns(Handle(1), kFirst));
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
  EXPECT_EQ(quarnfc::net::StatusCall(registry, Handle(1)).Session(), nullptr);
}

TEST(HandleRegistry, AHandleThatIsGoneGetsNoSession) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Remove(Handle(1), kFirst);
  registry.SetSession(Handle(1), Session(20));
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
}

TEST(HandleRegistry, AHandleValueUsedAgainBelongsToItsNewOwnerOnly) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Add(Handle(1), kSecond, nullptr, Session(20));
  EXPECT_FALSE(registry.Owns(Handle(1), kFirst));
  registry.Remove(Handle(1), kFirst);
  EXPECT_EQ(registry.Find(Handle(1)), Session(20));
  EXPECT_TRUE(registry.Owns(Handle(1), kSecond));
}

TEST(HandleRegistry, WhatIsBelowAClosedHandleGoesWithIt) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Add(Handle(2), kSecond, Handle(1), Session(10));
  registry.Add(Handle(3), kThird, Handle(2), Session(10));
  registry.Add(Handle(4), kThird, nullptr, Session(20));
  registry.Remove(Handle(1), kFirst);
  EXPECT_FALSE(registry.Owns(Handle(2), kSecond));
  EXPECT_FALSE(registry.Owns(Handle(3), kThird));
  EXPECT_TRUE(registry.Owns(Handle(4), kThird));
}

TEST(HandleRegistry, AConnectionTakesItsRequestsButNotItsSession) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Add(Handle(2), kSecond, Handle(1), Session(10));
  registry.Add(Handle(3), kThird, Handle(2), Session(10));
  registry.Remove(Handle(2), kSecond);
  EXPECT_TRUE(registry.Owns(Handle(1), kFirst));
  EXPECT_FALSE(registry.Owns(Handle(3), kThird));
}

TEST(HandleRegistry, ANewHandleWithTheNumberOfAClosedParentKeepsItsChildren) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Add(Handle(1), kSecond, nullptr, Session(20));  // the platform closed and reused it
  registry.Add(Handle(2), kThird, Handle(1), Session(20));
  registry.Remove(Handle(1), kFirst);
  EXPECT_TRUE(registry.Owns(Handle(1), kSecond));
  EXPECT_TRUE(registry.Owns(Handle(2), kThird));
}

TEST(HandleRegistry, ACopyOwnsTheHandleAsLongAsItIsOpen) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Share(Handle(1), kFirst, kCopy);
  registry.Share(Handle(1), kSecond, kThird);  // no owner: shares nothing
  EXPECT_TRUE(registry.Owns(Handle(1), kCopy));
  EXPECT_FALSE(registry.Owns(Handle(1), kThird));
  registry.Remove(Handle(1), kCopy);
  EXPECT_FALSE(registry.Owns(Handle(1), kFirst));
}

TEST(HandleRegistry, ASessionLeavesWithAllItsHandles) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  registry.Add(Handle(2), kSecond, nullptr, Session(20));
  registry.Add(Handle(3), kThird, nullptr, Session(10));
  registry.RemoveSession(Session(10));
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
  EXPECT_EQ(registry.Find(Handle(2)), Session(20));
  EXPECT_EQ(registry.Find(Handle(3)), nullptr);
}

TEST(HandleRegistry, ClosingTakesTheHandleOutAfterThePlatformClosedIt) {
  HINTERNET handle = FakeHandle();
  quarnfc::net::Registry().Add(handle, kFirst, nullptr, Session(10));
  CQNInternetSession* during = nullptr;
  HINTERNET seen = handle;
  TheFakeInternet().during_close = [&] {
    during = quarnfc::net::Registry().Find(FakeHandle());
    seen = handle;
  };
  quarnfc::net::CloseRegisteredHandle(handle, kFirst);
  EXPECT_EQ(during, Session(10));
  EXPECT_EQ(seen, nullptr);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(quarnfc::net::Registry().Find(FakeHandle()), nullptr);
  quarnfc::net::CloseRegisteredHandle(handle, kFirst);
  EXPECT_EQ(TheFakeInternet().calls.size(), 1u);
}

TEST(HandleRegistry, AHandleOfSomebodyElseIsNotClosed) {
  quarnfc::net::Registry().Add(FakeHandle(), kSecond, nullptr, Session(20));
  HINTERNET handle = FakeHandle();
  quarnfc::net::CloseRegisteredHandle(handle, kFirst);
  EXPECT_EQ(handle, nullptr);
  EXPECT_TRUE(TheFakeInternet().calls.empty());
  quarnfc::net::Registry().Remove(FakeHandle(), kSecond);
}

TEST(HandleRegistryThreads, MayUseItAtOnce) {
  HandleRegistry registry;
  std::vector<std::thread> threads;
  for (unsigned __int64 t = 1; t <= 4; ++t) {
    threads.emplace_back([&registry, t] {
      for (unsigned __int64 i = 0; i < 5000; ++i) {
        const HINTERNET handle = Handle(t * 100000 + i);
        registry.Add(handle, kFirst, nullptr, Session(t));
        if (i % 2 == 0) registry.Remove(handle, kFirst);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(registry.Find(Handle(100000)), nullptr);
  EXPECT_EQ(registry.Find(Handle(100001)), Session(1));
  EXPECT_EQ(registry.Find(Handle(404999)), Session(4));
}

TEST(HandleRegistryThreads, ASessionWaitsForItsCallbackOnAnotherThreadOnly) {
  HandleRegistry registry;
  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  std::promise<void> started;
  std::atomic<bool> ended{false};
  std::thread thread([&] {
    const quarnfc::net::StatusCall call(registry, Handle(1));
    EXPECT_EQ(call.Session(), Session(10));
    started.set_value();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ended = true;
  });
  started.get_future().wait();
  registry.RemoveSession(Session(20));  // not concerned: does not wait
  registry.RemoveSession(Session(10));
  EXPECT_TRUE(ended);
  EXPECT_EQ(quarnfc::net::StatusCall(registry, Handle(1)).Session(), nullptr);
  thread.join();

  registry.Add(Handle(1), kFirst, nullptr, Session(10));
  const quarnfc::net::StatusCall own(registry, Handle(1));
  registry.RemoveSession(Session(10));  // a callback that closes its own session does not wait
}

}  // namespace
