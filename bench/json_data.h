// SPDX-License-Identifier: MIT
// The documents of the JSON benchmarks.
#ifndef QUARNFC_BENCH_JSON_DATA_H_
#define QUARNFC_BENCH_JSON_DATA_H_

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace bench {

inline std::string ReadDocument(const char* name) {
  std::ifstream file(std::string(QUARNFC_BENCH_DATA "/") + name, std::ios::binary);
  if (!file) {
    std::fprintf(stderr, "cannot open %s\n", name);
    std::exit(1);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace bench

#endif  // QUARNFC_BENCH_JSON_DATA_H_
