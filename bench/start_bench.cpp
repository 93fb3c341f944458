// SPDX-License-Identifier: MIT
// What a host waits for: the library is loaded with everything it needs, makes its first strings
// and is unloaded. This program does not link the library.
#include "row.h"
#include "start_module.h"

namespace {

using bench::Keep;
using bench::kOurs;
using bench::Module;
using bench::Row;

void LoadUs() {
  const Module module(QUARNFC_BENCH_LIBRARY);
  auto* const join = module.Find<char*(const char*, const char*)>("qnUnionPath");
  auto* const release = module.Find<void(void*)>("qnFreeMem");
  release(join("C:\\data", "points.csv"));
}

void LoadPeer() {
  const Module module(QUARNFC_BENCH_PEER);
  Keep(module.Find<int(const char*)>("MakeString")("C:\\data\\points.csv"));
}

}  // namespace

int main(int argc, char** argv) {
  Row("start", "load, first string, unload", kOurs, LoadUs);
  Row("start", "load, first string, unload", "smallest C++ module", LoadPeer);
  return bench::Run(argc, argv);
}
