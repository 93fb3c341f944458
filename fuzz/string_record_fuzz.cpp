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

// One file for all runs.
std::FILE* Rewound() {
  static std::FILE* const file = std::tmpfile();
  fuzz::Expect(file != nullptr);
  std::rewind(file);
  return file;
}

// The record at position, after the rules: a count of 32 bits, little-endian, then that many bytes,
// of which the text is those up to the first zero.
bool ReadRecord(const std::string& bytes, std::size_t& position, std::string& text) {
  if (bytes.size() - position < 4) return false;
  std::size_t count = 0;
  for (int i = 3; i >= 0; --i) {
    count = count << 8 | static_cast<unsigned char>(bytes[position + static_cast<std::size_t>(i)]);
  }
  position += 4;
  if (count < 1 || count > kLargestRecord || bytes.size() - position < count) return false;
  text = bytes.substr(position, count);
  text.resize(std::strlen(text.c_str()));
  position += count;
  return true;
}

// The file keeps what longer runs left behind; zeros behind the bytes are no record.
void Fill(std::FILE* file, const std::string& bytes) {
  static std::size_t longest = 0;
  longest = std::max(longest, bytes.size() + 4);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  const std::string rest(longest - bytes.size(), '\0');
  std::fwrite(rest.data(), 1, rest.size(), file);
  std::rewind(file);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  std::FILE* const file = Rewound();
  Fill(file, bytes);
  std::size_t position = 0;
  std::string expected;
  CQNString text("before");
  while (ReadRecord(bytes, position, expected)) {
    fuzz::Expect(QNStringUtils::ReadString(file, text));
    fuzz::Expect(fuzz::BytesOf(text) == expected);
  }
  if (position == bytes.size()) fuzz::Expect(!QNStringUtils::ReadString(file, text));

  if (bytes.size() >= kLargestRecord) return 0;
  const CQNString written(bytes.c_str());
  QNStringUtils::WriteString(Rewound(), written);
  fuzz::Expect(QNStringUtils::ReadString(Rewound(), text));
  fuzz::Expect(fuzz::BytesOf(text) == fuzz::BytesOf(written));
  return 0;
}
