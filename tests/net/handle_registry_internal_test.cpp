#include "net/handle_registry.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "tests/net/fake_internet.h"

namespace {

using quarnfc::net::HandleRegistry;

HINTERNET Handle(unsigned __int64 value) { return reinterpret_cast<HINTERNET>(value); }

CQNInternetSession* Session(unsigned __int64 value) {
  return reinterpret_cast<CQNInternetSession*>(value);
}

TEST(HandleRegistry, FindsTheSessionOfAHandle) {
  HandleRegistry registry;
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
  registry.Add(Handle(1), Session(10));
  registry.Add(Handle(2), Session(20));
  EXPECT_EQ(registry.Find(Handle(1)), Session(10));
  EXPECT_EQ(registry.Find(Handle(2)), Session(20));
  registry.Remove(Handle(1), Session(10));
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
}

TEST(HandleRegistry, IgnoresNull) {
  HandleRegistry registry;
  registry.Add(nullptr, Session(10));
  registry.Add(Handle(1), nullptr);
  EXPECT_EQ(registry.Find(nullptr), nullptr);
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
}

TEST(HandleRegistry, AHandleValueUsedAgainByAnotherSessionStaysWithIt) {
  HandleRegistry registry;
  registry.Add(Handle(1), Session(10));
  registry.Add(Handle(1), Session(20));
  registry.Remove(Handle(1), Session(10));
  EXPECT_EQ(registry.Find(Handle(1)), Session(20));
}

TEST(HandleRegistry, ASessionLeavesWithAllItsHandles) {
  HandleRegistry registry;
  registry.Add(Handle(1), Session(10));
  registry.Add(Handle(2), Session(20));
  registry.Add(Handle(3), Session(10));
  registry.RemoveSession(Session(10));
  EXPECT_EQ(registry.Find(Handle(1)), nullptr);
  EXPECT_EQ(registry.Find(Handle(2)), Session(20));
  EXPECT_EQ(registry.Find(Handle(3)), nullptr);
}

TEST(HandleRegistry, ClosingTakesTheHandleOutAfterThePlatformClosedIt) {
  HINTERNET handle = FakeHandle();
  quarnfc::net::Registry().Add(handle, Session(10));
  CQNInternetSession* during = nullptr;
  HINTERNET seen = handle;
  TheFakeInternet().during_close = [&] {
    during = quarnfc::net::Registry().Find(FakeHandle());
    seen = handle;
  };
  quarnfc::net::CloseRegisteredHandle(handle);
  EXPECT_EQ(during, Session(10));
  EXPECT_EQ(seen, nullptr);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(quarnfc::net::Registry().Find(FakeHandle()), nullptr);
  quarnfc::net::CloseRegisteredHandle(handle);
  EXPECT_EQ(TheFakeInternet().calls.size(), 1u);
}

TEST(HandleRegistryThreads, MayUseItAtOnce) {
  HandleRegistry registry;
  std::vector<std::thread> threads;
  for (unsigned __int64 t = 1; t <= 4; ++t) {
    threads.emplace_back([&registry, t] {
      for (unsigned __int64 i = 0; i < 5000; ++i) {
        const HINTERNET handle = Handle(t * 100000 + i);
        registry.Add(handle, Session(t));
        if (i % 2 == 0) registry.Remove(handle, Session(t));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(registry.Find(Handle(100000)), nullptr);
  EXPECT_EQ(registry.Find(Handle(100001)), Session(1));
  EXPECT_EQ(registry.Find(Handle(404999)), Session(4));
}

}  // namespace
