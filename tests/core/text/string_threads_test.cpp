// SPDX-License-Identifier: MIT
// Strings that share buffers on several threads. Run under the thread sanitizer with *Threads*.
#include <quarnfc/qn_string.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "tests/core/text/text.h"
#include "tests/support/threads.h"

namespace {

using quarnfc_test::RunOnThreads;
using text_test::Bytes;

constexpr int kStringThreads = 4;
constexpr int kStringRounds = 2000;

// Every thread has its own string; all of them share one buffer at the start.
std::vector<CQNString> Sharing(const char* text) {
  return std::vector<CQNString>(kStringThreads, CQNString(text));
}

TEST(StringThreads, CopiesOfASharedBufferComeAndGo) {
  for (const std::string& text : {std::string("short"), std::string(700, 'x')}) {
    auto strings = Sharing(text.c_str());
    RunOnThreads(kStringThreads, [&](int thread) {
      for (int i = 0; i < kStringRounds; ++i) {
        CQNString copy(strings[thread]);
        CQNString assigned;
        assigned = copy;
        ASSERT_EQ(Bytes(assigned), text);
      }
    });
    for (const CQNString& string : strings) EXPECT_EQ(Bytes(string), text);
  }
}

TEST(StringThreads, AChangeOnOneThreadLeavesTheOthersAlone) {
  const std::string original(100, 'o');
  for (int round = 0; round < 200; ++round) {
    auto strings = Sharing(original.c_str());
    RunOnThreads(kStringThreads, [&](int thread) {
      CQNString copy(strings[thread]);
      strings[thread].SetAt(0, static_cast<char>('a' + thread));
      strings[thread] += static_cast<char>('a' + thread);
      ASSERT_EQ(Bytes(copy), original);
    });
    for (int thread = 0; thread < kStringThreads; ++thread) {
      std::string expected = original + static_cast<char>('a' + thread);
      expected[0] = static_cast<char>('a' + thread);
      ASSERT_EQ(Bytes(strings[thread]), expected);
    }
  }
}

TEST(StringThreads, TheLastOwnerOnAnyThreadFreesTheBuffer) {
  for (int round = 0; round < 200; ++round) {
    auto strings = Sharing(round % 2 == 0 ? "short" : std::string(600, 'x').c_str());
    RunOnThreads(kStringThreads, [&](int thread) { strings[thread].Empty(); });
    for (const CQNString& string : strings) ASSERT_EQ(string.GetLength(), 0);
  }
}

TEST(StringThreads, EachThreadBuildsItsOwnStrings) {
  RunOnThreads(kStringThreads, [](int thread) {
    for (int i = 0; i < kStringRounds; ++i) {
      CQNString text;
      text.Format("%d-%d", thread, i);
      text += text;
      text.Replace("-", ZHONG);
      const std::string part = std::to_string(thread) + ZHONG + std::to_string(i);
      ASSERT_EQ(Bytes(text), part + part);
    }
  });
}

TEST(StringThreads, AStringPassesFromThreadToThread) {
  CQNString text("start");
  for (int i = 0; i < 50; ++i) {
    std::thread([&text] { text += "+"; }).join();
  }
  EXPECT_EQ(Bytes(text), "start" + std::string(50, '+'));
}

// Two strings, unshared from one buffer at the same time by two threads.
TEST(StringThreads, BothOwnersMayUnshareAtOnce) {
  for (int round = 0; round < 300; ++round) {
    CQNString first("abc");
    CQNString second(first);
    std::thread thread([&first] { first.MakeUpper(); });
    second.MakeReverse();
    thread.join();
    ASSERT_EQ(Bytes(first), "ABC");
    ASSERT_EQ(Bytes(second), "cba");
  }
}

}  // namespace
