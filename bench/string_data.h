// SPDX-License-Identifier: MIT
// The texts of the string benchmarks.
#ifndef QUARNFC_BENCH_STRING_DATA_H_
#define QUARNFC_BENCH_STRING_DATA_H_

#include <benchmark/benchmark.h>

#include <string>

namespace bench {

inline constexpr std::size_t kLong = 65536;

inline std::string Letters(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i) text += static_cast<char>('a' + i * 7 % 26);
  return text;
}

inline std::string Upper(std::string text) {
  for (char& ch : text) ch = static_cast<char>(ch - 'a' + 'A');
  return text;
}

// The text as the compiler cannot see through. Not by benchmark::DoNotOptimize: GCC for Windows
// leaves out the pointer's store in front of an operand that may be a register or in memory.
inline const char* Opaque(const std::string& text) {
  const char* bytes = text.c_str();
  asm volatile("" : "+r"(bytes) : : "memory");
  return bytes;
}

inline constexpr const char* kPatterns[] = {"*.TXT", "report-??.txt", "*2024*final*", "abc*"};
inline constexpr char kFileName[] = "report-2024-final.txt";

}  // namespace bench

#endif  // QUARNFC_BENCH_STRING_DATA_H_
