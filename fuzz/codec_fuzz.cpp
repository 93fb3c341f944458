// SPDX-License-Identifier: MIT
// Text for the decoders, which must agree in their narrow and wide forms, and data for the
// encoders, which must come back.
#include <quarnfc/base32.h>
#include <quarnfc/base64.h>
#include <quarnfc/plain.h>

#include <cstring>
#include <vector>

#include "fuzz/input.h"

namespace {

template <class DecodeA, class DecodeW>
void CheckText(DecodeA decode_a, DecodeW decode_w, const std::vector<char>& text) {
  const std::vector<wchar_t> wide(text.begin(), text.end());
  unsigned char* from_narrow = nullptr;
  unsigned char* from_wide = nullptr;
  const auto length = static_cast<unsigned>(text.size());
  const int count = decode_a(text.data(), length, &from_narrow);
  fuzz::Expect(decode_w(wide.data(), length, &from_wide) == count);
  fuzz::Expect((from_narrow == nullptr) == (from_wide == nullptr));
  if (from_narrow != nullptr) {
    fuzz::Expect(std::memcmp(from_narrow, from_wide, static_cast<std::size_t>(count)) == 0);
  }
  qnFreeMem(from_narrow);
  qnFreeMem(from_wide);
}

template <class Encode, class Decode>
void CheckData(Encode encode, Decode decode, const std::uint8_t* data, std::size_t size) {
  char* const text = encode(data, static_cast<unsigned>(size));
  unsigned char* decoded = nullptr;
  const int count = decode(text, 0, &decoded);
  fuzz::Expect(count == static_cast<int>(size) && std::memcmp(decoded, data, size) == 0);
  qnFreeMem(decoded);
  qnFreeMem(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  CheckData(QNBase64::qnEncodeBase64A, QNBase64::qnDecodeBase64A, data, size);
  CheckData(QNBase32::qnEncodeBase32A, QNBase32::qnDecodeBase32A, data, size);
  // 7-bit, as the narrow form takes any other byte for foreign and the wide one another unit.
  std::vector<char> text(data, data + size);
  for (char& ch : text) ch &= 0x7F;
  CheckText(QNBase64::qnDecodeBase64A, QNBase64::qnDecodeBase64W, text);
  CheckText(QNBase32::qnDecodeBase32A, QNBase32::qnDecodeBase32W, text);
  return 0;
}
