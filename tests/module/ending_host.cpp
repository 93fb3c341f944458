// SPDX-License-Identifier: MIT
// A host whose threads and whose process end while others are inside the library. Each way to end
// runs in several processes of its own, since only some of them meet the bad moment:
//   main          main returns while threads work
//   worker        a thread ends the process while the others work
//   at_once       the process ends without the destructors of static objects
//   thread_local  objects of threads use the library when their thread ends
//   static        static objects use the library when the process ends, beside threads
// Usage: ending_host WAY [once]
#include <quarnfc/error.h>
#include <quarnfc/json_value.h>
#include <quarnfc/plain.h>
#include <quarnfc/qn_string.h>
#include <quarnfc/string_collection.h>
#if defined(ENDING_HOST_USES_HTTP)
#include <quarnfc/internet.h>
#endif

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/wine.h"

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 8;
constexpr int kSkipped = 77;

std::atomic<int> g_working = 0;

// A session comes and goes in the registry of handles; nothing touches the network.
void UseHttp() {
#if defined(ENDING_HOST_USES_HTTP)
  const CQNInternetSession session("agent");
#endif
}

// Pool blocks, nodes, blocks of the plain heap and records of classes; whether the results are
// right.
bool UseLibrary() {
  UseHttp();
  CQNString text;
  text.Format("%d-%s", 7, "seven");
  CQNString copy(text);
  copy += std::string(600, 'x').c_str();
  CMyJsonValue value;
  CQNString reason;
  const bool read = value.Load("{\"a\":[1,{\"b\":\"text\"}]}", reason);
  const unsigned __int64 error = QNErrorUtils::CreateError(CQNObject::eErrFileIO, text);
  qnCloseHandle(error);
  CQNStringCollection list;
  const bool is_named = std::strcmp(list.GetThisClass()->m_name, "CQNStringCollection") == 0;
  return read && copy.GetLength() == 607 && text == "7-seven" && is_named;
}

struct UsesAtItsEnd {
  ~UsesAtItsEnd() {
    if (!UseLibrary()) std::abort();
  }
};

void WorkForEver() {
  for (bool counted = false; UseLibrary();) {
    if (!counted) ++g_working;
    counted = true;
  }
  std::abort();
}

void StartWorkers(int count) {
  for (int i = 0; i < count; ++i) std::thread(WorkForEver).detach();
  while (g_working < count) std::this_thread::yield();
}

int EndInMain() {
  StartWorkers(kThreads);
  return 0;
}

int EndInWorker() {
  StartWorkers(kThreads - 1);
  std::thread([] { std::exit(0); }).detach();
  WorkForEver();
  return 1;
}

int EndAtOnce() {
  StartWorkers(kThreads);
  std::_Exit(0);
}

int EndThreads() {
  std::vector<std::thread> threads;
  threads.reserve(50);
  for (int i = 0; i < 50; ++i) {
    threads.emplace_back([i] {
      if (i % 2 == 0) UseLibrary();  // before the object is made, and after
      thread_local UsesAtItsEnd object;
      static_cast<void>(object);
      UseLibrary();
    });
  }
  for (std::thread& thread : threads) thread.join();
  return UseLibrary() ? 0 : 1;
}

int EndWithStaticObjects() {
  static UsesAtItsEnd object;
  static_cast<void>(object);
  StartWorkers(kThreads);
  return 0;
}

struct Way {
  const char* name;
  int (*run)();
  bool stops_threads;  // the end of the process stops threads wherever they are
};

constexpr Way kWays[] = {
    {"main", EndInMain, true},
    {"worker", EndInWorker, true},
    {"at_once", EndAtOnce, true},
    {"thread_local", EndThreads, false},
    {"static", EndWithStaticObjects, true},
};

int RunRounds(const std::string& program, const Way& way) {
  if (way.stops_threads && quarnfc_test::RunsUnderWine()) {
    std::puts("skipped: a thread that Wine stops inside a wait keeps a lock that the end needs");
    return kSkipped;
  }
  for (int round = 0; round < kRounds; ++round) {
    const int result = std::system((program + " " + way.name + " once").c_str());
    if (result == 0) continue;
    std::fprintf(stderr, "failed: %s ended with %d in round %d\n", way.name, result, round);
    return 1;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  for (const Way& way : kWays) {
    if (argc < 2 || std::strcmp(argv[1], way.name) != 0) continue;
    if (argc > 2) return way.run();
    return RunRounds(std::filesystem::path(argv[0]).make_preferred().string(), way);
  }
  return 2;
}
