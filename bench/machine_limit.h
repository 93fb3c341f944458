// SPDX-License-Identifier: MIT
// Rows of what the machine needs for the bytes alone: no way to do the work can be faster.
#ifndef QUARNFC_BENCH_MACHINE_LIMIT_H_
#define QUARNFC_BENCH_MACHINE_LIMIT_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "row.h"

namespace bench {

// Everything in the words, by four chains that do not wait for each other. With the widest vectors
// that most machines have.
#if defined(__x86_64__)
[[gnu::target("avx2")]]
#endif
inline std::uint64_t
OrOf(const std::vector<std::uint64_t>& words) {
  const std::size_t quarter = words.size() / 4;
  const std::uint64_t* at = words.data();
  std::uint64_t a = 0, b = 0, c = 0, d = 0;
  for (std::size_t i = 0; i < quarter; ++i) {
    a |= at[i];
    b |= at[i + quarter];
    c |= at[i + 2 * quarter];
    d |= at[i + 3 * quarter];
  }
  return a | b | c | d;
}

// Reading size bytes.
inline void ReadLimit(const std::string& work, const std::string& input, std::size_t size) {
  Row(work, input, "limit: read", [words = std::vector<std::uint64_t>(size / 8, 1)] {
    Keep(words);
    Keep(OrOf(words));
  });
}

// Making a block of size bytes and filling it from one as large.
inline void CopyLimit(const std::string& work, const std::string& input, std::size_t size) {
  Row(work, input, "limit: memcpy", [source = std::vector<char>(size, 'x')] {
    const std::unique_ptr<char[]> block(new char[source.size()]);
    std::memcpy(block.get(), source.data(), source.size());
    Keep(block);
  });
}

}  // namespace bench

#endif  // QUARNFC_BENCH_MACHINE_LIMIT_H_
