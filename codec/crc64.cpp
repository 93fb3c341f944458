// SPDX-License-Identifier: MIT
// CRC-64 with the polynomial of ECMA-182, reflected, started with all bits set. Deliberately not
// inverted at the end: the value is the complement of CRC-64/XZ. No state, no stack to speak of;
// the text is the only allocation.
#include "quarnfc/crc64.h"

#include <cstddef>
#include <cstdint>

#include "codec/crc64_hash.h"
#include "codec/crc64_update.h"
#include "codec/hex_text.h"
#include "codec/result_buffer.h"
#include "platform/cpu.h"

namespace quarnfc::codec {
namespace {

constexpr int kTextLength = 16;

// The fastest way this processor knows.
Crc64Update ChooseUpdate() {
  if (platform::CpuHasWideClmul()) return UpdateCrc64X86Wide;
  return platform::CpuHasClmul() ? UpdateCrc64X86 : UpdateCrc64Plain;
}

}  // namespace

std::uint64_t UpdateCrc64(std::uint64_t crc, const unsigned char* data, std::size_t size) {
  static const Crc64Update update = ChooseUpdate();
  return update(crc, data, size);
}

namespace {

template <class Char>
Char* Crc64Text(const unsigned char* data, unsigned int size) noexcept {
  Char* const text = TryAllocResult<Char>(kTextLength + 1);
  if (text == nullptr) return nullptr;
  const std::uint64_t crc = UpdateCrc64(kCrc64Start, data, data == nullptr ? 0 : size);
  Char* end = text;
  for (int shift = 56; shift >= 0; shift -= 8) {
    end = WriteHexByte(crc >> shift & 0xFF, kUpperHexDigits, end);
  }
  *end = Char{};
  return text;
}

}  // namespace
}  // namespace quarnfc::codec

namespace QNCRC64 {

char* qnGetCRC64StrA(const unsigned char* data, unsigned int size) {
  return quarnfc::codec::Crc64Text<char>(data, size);
}

wchar_t* qnGetCRC64StrW(const unsigned char* data, unsigned int size) {
  return quarnfc::codec::Crc64Text<wchar_t>(data, size);
}

}  // namespace QNCRC64
