// SPDX-License-Identifier: MIT
// What the services of modules and threads promise, on both targets. Usage: probe_host PROBE MODE
//   unload   static objects of a module that is unloaded are told so
//   exit     those of a module that is there to the end of the process are told otherwise
//   threads  each thread has a pointer of its own, and its end is reported
//   slots    the same where others have taken many of the system's slots before
#include "tests/platform/probe.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>
#endif

namespace {

// --- the system --------------------------------------------------------------------------------

constexpr int kManySlots = 100;  // Windows keeps the first 64 apart

#if defined(_WIN32)

using Library = HMODULE;

Library Load(const char* path) { return LoadLibraryA(path); }
void Unload(Library library) { FreeLibrary(library); }
void* Find(Library library, const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(library, name));
}
void TakeSlots() {
  for (int i = 0; i < kManySlots; ++i) TlsAlloc();
}
void SetSystemError(int error) { SetLastError(static_cast<DWORD>(error)); }
int SystemError() { return static_cast<int>(GetLastError()); }
[[noreturn]] void EndProcess(int code) {
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
  std::abort();
}

#else

using Library = void*;

Library Load(const char* path) { return dlopen(path, RTLD_NOW); }
void Unload(Library library) { dlclose(library); }
void* Find(Library library, const char* name) { return dlsym(library, name); }
void TakeSlots() {
  for (int i = 0; i < kManySlots; ++i) {
    pthread_key_t key;
    pthread_key_create(&key, nullptr);
  }
}
void SetSystemError(int error) { errno = error; }
int SystemError() { return errno; }
[[noreturn]] void EndProcess(int code) { _exit(code); }

#endif

// --- the probe ---------------------------------------------------------------------------------

int g_failures = 0;

void Expect(bool ok, const char* expectation) {
  if (ok) return;
  std::fprintf(stderr, "failed: %s\n", expectation);
  ++g_failures;
}

// The functions of a loaded probe.
struct Probe {
  explicit Probe(const char* path)
      : library(Load(path)),
        is_unloading(Function<decltype(&ProbeIsUnloading)>("ProbeIsUnloading")),
        report_at_end(Function<decltype(&ProbeReportAtEnd)>("ProbeReportAtEnd")),
        data(Function<decltype(&ProbeThreadData)>("ProbeThreadData")),
        mark(Function<decltype(&ProbeThreadMark)>("ProbeThreadMark")),
        set_data(Function<decltype(&ProbeSetThreadData)>("ProbeSetThreadData")),
        release_data(Function<decltype(&ProbeReleaseThreadData)>("ProbeReleaseThreadData")) {}

  template <class Pointer>
  Pointer Function(const char* name) const {
    void* const function = library == nullptr ? nullptr : Find(library, name);
    if (function == nullptr) {
      std::fprintf(stderr, "the probe lacks %s\n", name);
      std::exit(1);
    }
    return reinterpret_cast<Pointer>(function);
  }

  Library library;
  decltype(&ProbeIsUnloading) is_unloading;
  decltype(&ProbeReportAtEnd) report_at_end;
  decltype(&ProbeThreadData) data;
  decltype(&ProbeThreadMark) mark;
  decltype(&ProbeSetThreadData) set_data;
  decltype(&ProbeReleaseThreadData) release_data;
};

// --- modules -----------------------------------------------------------------------------------

int g_reports_of_unloading = 0;

void CheckUnload(const Probe& probe) {
  Expect(!probe.is_unloading(), "a module in use is not unloading");
  probe.report_at_end([](bool unloading) { g_reports_of_unloading += unloading ? 1 : 100; });
  Unload(probe.library);
  Expect(g_reports_of_unloading == 1, "static objects learn that their module is unloaded");
}

// The report ends the process with its verdict.
void CheckExit(const Probe& probe) {
  probe.report_at_end([](bool unloading) {
    Expect(!unloading, "the end of the process is no unloading");
    EndProcess(g_failures);
  });
  std::exit(2);  // what is left when nothing is reported
}

// --- threads -----------------------------------------------------------------------------------

const Probe* g_probe = nullptr;
std::vector<void*> g_ended;  // the data of the threads that ended
bool g_data_at_end = false;  // whether at_end found data

void AtEnd(void* data) {
  g_ended.push_back(data);
  g_data_at_end = g_data_at_end || g_probe->data() != nullptr;
}

void CheckEachThreadHasItsOwn(const Probe& probe) {
  int mine = 0;
  int other = 0;
  Expect(probe.data() == nullptr, "there is no data at first");
  Expect(probe.mark() != nullptr && probe.mark() == probe.mark(), "a thread keeps its mark");
  probe.set_data(&mine, AtEnd);
  const void* const my_mark = probe.mark();
  std::thread([&] {
    Expect(probe.data() == nullptr, "another thread has no data at first");
    Expect(probe.mark() != nullptr && probe.mark() != my_mark, "marks are apart");
    probe.set_data(&other, AtEnd);
    Expect(probe.data() == &other, "another thread has data of its own");
  }).join();
  Expect(probe.data() == &mine, "nobody else changes the data");
  Expect(g_ended == std::vector<void*>{&other}, "the end of a thread hands its data over once");
  Expect(!g_data_at_end, "the data is gone when it is handed over");
}

void CheckThreadsWithoutDataEndSilently(const Probe& probe) {
  g_ended.clear();
  int data = 0;
  std::thread([&] { Expect(probe.data() == nullptr, "data is not inherited"); }).join();
  std::thread([&] {
    probe.set_data(&data, AtEnd);
    probe.set_data(nullptr, AtEnd);
  }).join();
  Expect(g_ended.empty(), "there is nothing to hand over");
}

void CheckReadingLeavesTheErrorAlone(const Probe& probe) {
  SetSystemError(87);
  probe.data();
  probe.mark();
  Expect(SystemError() == 87, "reading leaves the last error alone");
}

void CheckReleaseEndsTheReports(const Probe& probe) {
  g_ended.clear();
  int data = 0;
  std::thread([&] {
    probe.set_data(&data, AtEnd);
    probe.release_data();
  }).join();
  Expect(g_ended.empty(), "nothing is handed over after the release");
}

void CheckThreads(const Probe& probe) {
  g_probe = &probe;
  CheckEachThreadHasItsOwn(probe);
  CheckThreadsWithoutDataEndSilently(probe);
  CheckReadingLeavesTheErrorAlone(probe);
  CheckReleaseEndsTheReports(probe);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string mode = argv[2];
  if (mode == "slots") TakeSlots();
  const Probe probe(argv[1]);
  if (mode == "unload") {
    CheckUnload(probe);
  } else if (mode == "exit") {
    CheckExit(probe);
  } else {
    CheckThreads(probe);
  }
  return g_failures;
}
