// SPDX-License-Identifier: MIT
// String records: any bytes as a file, which is read record by record; and what is written comes
// back.
#include <quarnfc/string_utils.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "fuzz/input.h"
#include "fuzz/reference.h"

namespace {

constexpr std::size_t kLargestRecord = 10240;

// The record at position, after the rules: a count of 32 bits, little-endian, then that many bytes,
// of which the text is those up to the first zero. The position moves behind a record that is
// whole.
bool ReadRecord(const std::string& bytes, std::size_t& position, std::string& text) {
  if (bytes.size() - position < 4) return false;
  std::size_t count = 0;
  for (int i = 3; i >= 0; --i) {
    count = count << 8 | static_cast<unsigned char>(bytes[position + static_cast<std::size_t>(i)]);
  }
  const std::size_t begin = position + 4;
  if (count < 1 || count > kLargestRecord || bytes.size() - begin < count) return false;
  text = bytes.substr(begin, count);
  text.resize(std::strlen(text.c_str()));
  position = begin + count;
  return true;
}

void CheckReading(std::FILE* file, const std::string& bytes) {
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::rewind(file);
  std::size_t position = 0;
  std::string expected = "before";
  CQNString text(expected.c_str());
  while (ReadRecord(bytes, position, expected)) {
    fuzz::Expect(QNStringUtils::ReadString(file, text));
    fuzz::Expect(fuzz::BytesOf(text) == expected);
  }
  fuzz::Expect(!QNStringUtils::ReadString(file, text));
  fuzz::Expect(fuzz::BytesOf(text) == expected);
}

void CheckWriting(std::FILE* file, const CQNString& written) {
  std::rewind(file);
  QNStringUtils::WriteString(file, written);
  std::rewind(file);
  CQNString text;
  fuzz::Expect(QNStringUtils::ReadString(file, text));
  fuzz::Expect(fuzz::BytesOf(text) == fuzz::BytesOf(written));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::FILE* const file = std::tmpfile();
  fuzz::Expect(file != nullptr);
  CheckReading(file, bytes);
  if (bytes.size() < kLargestRecord) CheckWriting(file, CQNString(bytes.c_str()));
  std::fclose(file);
  return 0;
}
