// SPDX-License-Identifier: MIT
// A host that loads the library at run time. Usage: unload_host LIBRARY unload|reload|threads|exit
//   unload   unloading the library frees its pools and slabs
//   reload   a thousand times leave nothing behind
//   threads  threads that used it may end when it is gone
//   exit     the end of the process does not: threads that still run go on using them
// The host's own operators count the memory in question; the library's calls reach them.
#include "unload_host.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <thread>
#include <vector>

namespace {

using unload_host::FreeFunction;
using unload_host::JoinFunction;
using unload_host::kPoolChunk;
using unload_host::Report;

std::atomic<long> g_blocks = 0;
std::atomic<long> g_chunks = 0;
std::atomic<long> g_slabs = 0;

struct Header {
  std::size_t size;
  std::size_t unused;
};

}  // namespace

void* operator new(std::size_t size) {
  auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + size));
  if (header == nullptr) throw std::bad_alloc();
  header->size = size;
  ++g_blocks;
  g_chunks += size == kPoolChunk;
  return header + 1;
}

// Not inlined: where it is, GCC takes the header for an access in front of the caller's block.
[[gnu::noinline]] void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  Header* header = static_cast<Header*>(block) - 1;
  --g_blocks;
  g_chunks -= header->size == kPoolChunk;
  std::free(header);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  void* block = std::aligned_alloc(static_cast<std::size_t>(alignment), size);
  if (block == nullptr) throw std::bad_alloc();
  ++g_slabs;
  return block;
}

void operator delete(void* block, std::align_val_t) noexcept {
  --g_slabs;
  std::free(block);
}

void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t) noexcept { operator delete(block); }
void operator delete(void* block, std::size_t, std::align_val_t alignment) noexcept {
  operator delete(block, alignment);
}

namespace {

template <class Function>
Function Find(void* library, const char* name) {
  return reinterpret_cast<Function>(dlsym(library, name));
}

void UseStrings(void* library) {
  char* joined = Find<JoinFunction>(library, "qnUnionPath")("data", "a.txt");
  Find<FreeFunction>(library, "qnFreeMem")(joined);
}

int Unload(const char* path) {
  void* library = dlopen(path, RTLD_NOW);
  if (library == nullptr) return Report(false, dlerror());
  UseStrings(library);
  const bool used = g_chunks > 0;
  dlclose(library);
  if (dlopen(path, RTLD_NOW | RTLD_NOLOAD) != nullptr) return Report(false, "it is unloaded");
  return Report(used && g_chunks == 0, "unloading frees the chunks of the pools") |
         Report(g_slabs == 0, "unloading frees the slabs");
}

// What a process holds: files, pages of memory in use, blocks of the operators.
struct Holdings {
  long files = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  long pages = ResidentPages();
  long blocks = g_blocks;
  long slabs = g_slabs;

  static long ResidentPages() {
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return pages;
  }
};

// More often than there are keys for the data of threads, of which the library takes one.
int Reload(const char* path) {
  constexpr int kTimes = 1100;
  Holdings start;
  for (int i = 0; i < kTimes; ++i) {
    if (i == 100) start = Holdings();
    void* library = dlopen(path, RTLD_NOW);
    if (library == nullptr) return Report(false, dlerror());
    UseStrings(library);
    dlclose(library);
  }
  const Holdings end;
  constexpr long kSparePages = 256;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  constexpr bool kCountsPages = false;  // the sanitizers keep what they know of each module
#else
  constexpr bool kCountsPages = true;
#endif
  return Report(end.files == start.files, "no file stays open") |
         Report(end.blocks == start.blocks && end.slabs == start.slabs, "no block stays") |
         Report(!kCountsPages || end.pages < start.pages + kSparePages, "memory does not grow");
}

// Threads that used the library wait until it is unloaded, and end.
int OutliveIt(const char* path) {
  constexpr int kThreads = 8;
  void* library = dlopen(path, RTLD_NOW);
  if (library == nullptr) return Report(false, dlerror());
  std::atomic<int> used = 0;
  std::atomic<bool> unloaded = false;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      UseStrings(library);
      ++used;
      while (!unloaded) std::this_thread::yield();
    });
  }
  while (used < kThreads) std::this_thread::yield();
  dlclose(library);
  unloaded = true;
  for (std::thread& thread : threads) thread.join();
  return Report(g_chunks == 0 && g_slabs == 0, "unloading frees what threads used");
}

long g_chunks_of_main = 0;
long g_slabs_of_main = 0;
std::atomic<long> g_rounds = 0;

// Registered before the library is loaded, so the library's own end has come when it runs.
void CheckAfterTheLibrary() {
  const long rounds = g_rounds;
  while (g_rounds < rounds + 1000) std::this_thread::yield();
  _exit(Report(g_chunks >= g_chunks_of_main && g_slabs >= g_slabs_of_main,
               "the end of the process frees nothing"));
}

int Exit(const char* path) {
  std::atexit(CheckAfterTheLibrary);
  void* library = dlopen(path, RTLD_NOW);
  if (library == nullptr) return Report(false, dlerror());
  UseStrings(library);
  std::thread([library] {
    for (;; ++g_rounds) UseStrings(library);
  }).detach();
  while (g_rounds < 1000) std::this_thread::yield();
  g_chunks_of_main = g_chunks;
  g_slabs_of_main = g_slabs;
  return g_chunks > 0 ? 0 : Report(false, "strings use pools");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const unload_host::Mode modes[] = {
      {"unload", Unload}, {"reload", Reload}, {"threads", OutliveIt}, {"exit", Exit}};
  return unload_host::Run(modes, argv[2], argv[1]);
}
