// SPDX-License-Identifier: MIT
// A host that loads the library at run time. Usage: unload_host LIBRARY unload|exit
//   unload  unloading the library frees its pools and slabs
//   exit    the end of the process does not: threads that still run go on using them
// The host's own operators count the memory in question; the library's calls reach them.
#include "unload_host.h"

#include <dlfcn.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>
#include <thread>

namespace {

using unload_host::FreeFunction;
using unload_host::JoinFunction;
using unload_host::kPoolChunk;
using unload_host::Report;

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
  g_chunks += size == kPoolChunk;
  return header + 1;
}

void operator delete(void* block) noexcept {
  if (block == nullptr) return;
  Header* header = static_cast<Header*>(block) - 1;
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
  return std::strcmp(argv[2], "unload") == 0 ? Unload(argv[1]) : Exit(argv[1]);
}
