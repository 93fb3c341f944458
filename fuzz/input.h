// SPDX-License-Identifier: MIT
// The bytes a fuzzer hands over, cut into what a target needs.
#ifndef QUARNFC_FUZZ_INPUT_H_
#define QUARNFC_FUZZ_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), end_(data + size) {}

  bool IsEmpty() const { return data_ == end_; }

  // One byte; 0 behind the end.
  std::uint8_t Byte() { return IsEmpty() ? 0 : *data_++; }

  // Bytes up to the next zero, which is taken too, or to the end.
  std::string Text() {
    std::string text;
    while (!IsEmpty()) {
      const char ch = static_cast<char>(*data_++);
      if (ch == '\0') break;
      text.push_back(ch);
    }
    return text;
  }

 private:
  const std::uint8_t* data_;
  const std::uint8_t* end_;
};

// Ends the program, which the fuzzer reports with the input that led here.
inline void Expect(bool condition) {
  if (!condition) std::abort();
}

}  // namespace fuzz

#endif  // QUARNFC_FUZZ_INPUT_H_
