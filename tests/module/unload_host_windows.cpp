// SPDX-License-Identifier: MIT
// A host that loads the library at run time. Usage: unload_host LIBRARY unload
// Unloading the library frees the chunks of its pools.
#include "unload_host.h"

#include <malloc.h>
#include <windows.h>

namespace {

using unload_host::FreeFunction;
using unload_host::JoinFunction;
using unload_host::kPoolChunk;
using unload_host::Report;

template <class Function>
Function Find(HMODULE library, const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

// How many blocks of a pool chunk's size the heap of the run-time library holds.
int CountChunks() {
  const HANDLE heap = reinterpret_cast<HANDLE>(_get_heap_handle());
  PROCESS_HEAP_ENTRY entry{};
  int chunks = 0;
  while (HeapWalk(heap, &entry)) {
    chunks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 && entry.cbData == kPoolChunk;
  }
  return chunks;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const int before = CountChunks();
  HMODULE library = LoadLibraryA(argv[1]);
  if (library == nullptr) return Report(false, "the library can be loaded");
  char* joined = Find<JoinFunction>(library, "qnUnionPath")("data", "a.txt");
  Find<FreeFunction>(library, "qnFreeMem")(joined);
  const int used = CountChunks();
  FreeLibrary(library);
  if (GetModuleHandleA("QuarnFC.dll") != nullptr) return Report(false, "it is unloaded");
  return Report(used > before, "strings use pools") |
         Report(CountChunks() == before, "unloading frees the chunks of the pools");
}
