// SPDX-License-Identifier: MIT
// What the codecs and digests hand to the caller, taken over into standard containers so that
// tests compare and print bytes; and the data they are tried on.
#ifndef QUARNFC_TESTS_CODEC_RESULTS_H_
#define QUARNFC_TESTS_CODEC_RESULTS_H_

#include <random>
#include <string>
#include <vector>

#include "tests/support/caller_buffer.h"

namespace codec_test {

using Bytes = std::vector<unsigned char>;

template <class T>
using Owned = quarnfc_test::CallerBuffer<T>;

// The text of a result buffer, which is released; "(null)" when there is none. Wide text must
// hold ASCII only, other characters show as "?".
template <class Char>
std::string Take(Char* text) {
  const Owned<Char> owned(text);
  if (text == nullptr) return "(null)";
  std::string result;
  for (; *text != Char{}; ++text) {
    result.push_back(*text > 0 && *text < 0x80 ? static_cast<char>(*text) : '?');
  }
  return result;
}

// ASCII text as UTF-16.
inline std::vector<wchar_t> Widen(const std::string& text) {
  std::vector<wchar_t> wide(text.begin(), text.end());
  wide.push_back(L'\0');
  return wide;
}

inline Bytes ToBytes(const std::string& text) { return Bytes(text.begin(), text.end()); }

// The same bytes in every run.
inline Bytes RandomBytes(std::size_t size, unsigned seed = 1) {
  std::mt19937 random(seed);
  Bytes bytes(size);
  for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(random());
  return bytes;
}

}  // namespace codec_test

#endif  // QUARNFC_TESTS_CODEC_RESULTS_H_
