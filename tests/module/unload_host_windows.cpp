// SPDX-License-Identifier: MIT
// A host that loads the library at run time. Usage: unload_host LIBRARY unload|reload|threads
//   unload   unloading the library frees the chunks of its pools
//   reload   a thousand times leave nothing behind
//   threads  threads that used it may end when it is gone
#include "unload_host.h"

#include <malloc.h>
#include <windows.h>

#include <psapi.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using unload_host::FreeFunction;
using unload_host::JoinFunction;
using unload_host::kPoolChunk;
using unload_host::Report;

template <class Function>
Function Find(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

void UseStrings(HMODULE library) {
  char* joined = Find<JoinFunction>(library, "qnUnionPath")("data", "a.txt");
  Find<FreeFunction>(library, "qnFreeMem")(joined);
}

// What the heap of the run-time library holds.
struct Heap {
  long blocks = 0;
  long chunks = 0;  // blocks of a pool chunk's size

  Heap() {
    const HANDLE heap = reinterpret_cast<HANDLE>(_get_heap_handle());
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) == 0) continue;
      ++blocks;
      chunks += entry.cbData == kPoolChunk;
    }
  }
};

int Unload(const char* path) {
  const Heap before;
  HMODULE library = LoadLibraryA(path);
  if (library == nullptr) return Report(false, "the library can be loaded");
  UseStrings(library);
  const Heap used;
  FreeLibrary(library);
  if (GetModuleHandleA("QuarnFC.dll") != nullptr) return Report(false, "it is unloaded");
  return Report(used.chunks > before.chunks, "strings use pools") |
         Report(Heap().chunks == before.chunks, "unloading frees the chunks of the pools");
}

struct Holdings {
  DWORD handles = 0;
  SIZE_T bytes = 0;
  Heap heap;

  Holdings() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    bytes = counters.PagefileUsage;
  }
};

// More often than there are slots for the data of threads, of which the library takes one. The
// libraries that it needs stay, so that only its own coming and going counts.
int Reload(const char* path) {
  constexpr int kTimes = 1100;
  const HMODULE needed[] = {LoadLibraryA("wininet.dll"), LoadLibraryA("shlwapi.dll"),
                            LoadLibraryA("oleaut32.dll")};
  Holdings start;
  for (int i = 0; i < kTimes; ++i) {
    if (i == 100) start = Holdings();
    HMODULE library = LoadLibraryA(path);
    if (library == nullptr) return Report(false, "the library can be loaded again");
    UseStrings(library);
    FreeLibrary(library);
  }
  const Holdings end;
  for (const HMODULE module : needed) FreeLibrary(module);
  constexpr long kSpareBlocks = 16;
  constexpr SIZE_T kSpareBytes = 4 * 1024 * 1024;
  return Report(end.handles <= start.handles, "no handle stays open") |
         Report(end.heap.blocks < start.heap.blocks + kSpareBlocks, "no block stays") |
         Report(end.bytes < start.bytes + kSpareBytes, "memory does not grow");
}

// Threads that used the library wait until it is unloaded, and end.
int OutliveIt(const char* path) {
  constexpr int kThreads = 8;
  HMODULE library = LoadLibraryA(path);
  if (library == nullptr) return Report(false, "the library can be loaded");
  std::atomic<int> used = 0;
  std::atomic<bool> unloaded = false;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      UseStrings(library);
      ++used;
      while (!unloaded) Sleep(1);
    });
  }
  while (used < kThreads) Sleep(1);
  FreeLibrary(library);
  unloaded = true;
  for (std::thread& thread : threads) thread.join();
  return Report(GetModuleHandleA("QuarnFC.dll") == nullptr, "it is unloaded");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const unload_host::Mode modes[] = {
      {"unload", Unload}, {"reload", Reload}, {"threads", OutliveIt}};
  return unload_host::Run(modes, argv[2], argv[1]);
}
