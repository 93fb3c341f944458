// SPDX-License-Identifier: MIT
// Text for the decoders, which must agree in their narrow and wide forms, and data for the
// encoders, which must come back.
#include <quarnfc/base32.h>
#include <quarnfc/base64.h>
#include <quarnfc/plain.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/input.h"

namespace {

// The decoding rule bit by bit: a character adds its bits, most significant first; "=" or the
// terminator ends the text, and whatever else is foreign refuses it. A null length goes to the
// terminator.
bool Decode(const std::string& alphabet, int bits, const std::string& text, std::string& data) {
  unsigned accumulated = 0;
  int held = 0;
  for (const char ch : text) {
    if (ch == '=') break;
    const std::size_t value = alphabet.find(ch);
    if (value == std::string::npos) return false;
    accumulated = (accumulated << bits | static_cast<unsigned>(value)) & 0xFFFF;
    held += bits;
    if (held < 8) continue;
    held -= 8;
    data += static_cast<char>(accumulated >> held & 0xFF);
  }
  return true;
}

const std::string kBase64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
const std::string kBase32 = "abcdefghijklmnopqrstuvwxyz654321";

// Text without zeros, so that its end is the same for every length.
template <class DecodeA>
void CheckAgainstRule(DecodeA decode, const std::string& alphabet, int bits,
                      const std::vector<char>& text) {
  const std::string plain(text.begin(), std::find(text.begin(), text.end(), '\0'));
  std::string expected;
  const bool accepted = Decode(alphabet, bits, plain, expected);
  unsigned char* data = nullptr;
  const int count = decode(plain.c_str(), 0, &data);
  fuzz::Expect(accepted == (data != nullptr));
  fuzz::Expect(count == (accepted ? static_cast<int>(expected.size()) : 0));
  if (accepted) fuzz::Expect(std::memcmp(data, expected.data(), expected.size()) == 0);
  qnFreeMem(data);
}

}  // namespace

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
  CheckAgainstRule(QNBase64::qnDecodeBase64A, kBase64, 6, text);
  CheckAgainstRule(QNBase32::qnDecodeBase32A, kBase32, 5, text);
  return 0;
}
