// SPDX-License-Identifier: MIT
// Format strings against arguments that suit every conversion.
//
// The floating-point arguments fill exactly the registers set aside for them, so that whatever else
// a conversion takes is the address of a text. That address is a small number: as a "*" width it
// stays small, and as a text it can be read.
#include <quarnfc/qn_string.h>

#include <sys/mman.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string>
#include <utility>

#include "fuzz/input.h"

namespace {

constexpr std::size_t kArguments = 64;
constexpr std::size_t kMaxArgumentsUsed = 50;
constexpr std::size_t kMaxDigits = 4;

// Text that is terminated as 8-bit and as wide text.
const char* LowText() {
  static const char* const text = [] {
    void* const wanted = reinterpret_cast<void*>(0x10000);
    void* page = mmap(wanted, 4096, PROT_READ | PROT_WRITE,
                      MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
    fuzz::Expect(page == wanted);
    std::strcpy(static_cast<char*>(page), "some \xD6\xD0 text");
    return static_cast<const char*>(page);
  }();
  return text;
}

// Whether a format takes no more arguments than there are, and asks for no giant texts.
bool IsReasonable(const std::string& format) {
  std::size_t digits = 0;
  for (const char ch : format) {
    digits = std::isdigit(static_cast<unsigned char>(ch)) ? digits + 1 : 0;
    if (digits > kMaxDigits) return false;
  }
  const auto taken =
      std::count(format.begin(), format.end(), '%') + std::count(format.begin(), format.end(), '*');
  return static_cast<std::size_t>(taken) <= kMaxArgumentsUsed;
}

template <std::size_t... kIndex>
void Format(CQNString& text, const char* format, std::index_sequence<kIndex...>) {
  const char* const argument = LowText();
  text.Format(format, 0.5, -1e300, 1.0 / 3, 1e-300, 0.0, -0.0, 12345.678, 1.0,
              (static_cast<void>(kIndex), argument)...);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string format = fuzz::Input(data, size).Text();
  if (!IsReasonable(format)) return 0;
  CQNString text;
  Format(text, format.c_str(), std::make_index_sequence<kArguments>());
  const char* chars = text;
  fuzz::Expect(std::strlen(chars) == static_cast<std::size_t>(text.GetLength()));
  fuzz::Expect(text.GetLength() <= text.GetAllocLength());
  return 0;
}
