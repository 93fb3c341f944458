// SPDX-License-Identifier: MIT
// Strings in binary files:
//
//   record = count (32 bits, the low byte first) bytes zero
//
// where the count includes the zero byte. Records of at most 10,240 bytes are read, through one
// scratch buffer of their size; deliberately, longer ones are written all the same.
#include <quarnfc/string_utils.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <quarnfc/fixed_alloc.h>

namespace {

constexpr std::uint32_t kMaxCount = 10240;

}  // namespace

void QNStringUtils::WriteString(FILE* file, const CQNString& text) {
  if (file == nullptr) return;
  const char* bytes = text;
  const auto count = static_cast<std::uint32_t>(std::strlen(bytes) + 1);
  unsigned char prefix[4];
  for (int i = 0; i < 4; ++i) prefix[i] = static_cast<unsigned char>(count >> (8 * i));
  std::fwrite(prefix, 1, sizeof(prefix), file);
  std::fwrite(bytes, 1, count, file);
}

bool QNStringUtils::ReadString(FILE* file, CQNString& text) {
  unsigned char prefix[4];
  if (file == nullptr || std::fread(prefix, 1, sizeof(prefix), file) != sizeof(prefix)) {
    return false;
  }
  std::uint32_t count = 0;
  for (int i = 0; i < 4; ++i) count |= static_cast<std::uint32_t>(prefix[i]) << (8 * i);
  if (count < 1 || count > kMaxCount) return false;

  CQNTempBuffer scratch(static_cast<int>(count));
  auto* bytes = static_cast<char*>(scratch.GetData());
  if (std::fread(bytes, 1, count, file) != count) return false;
  text = CQNString(bytes, static_cast<int>(strnlen(bytes, count)));
  return true;
}
