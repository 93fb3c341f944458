// SPDX-License-Identifier: MIT
// Length-prefixed string records in binary files.
#include <quarnfc/string_utils.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/core/text/text.h"

namespace {

using QNStringUtils::ReadString;
using QNStringUtils::WriteString;
using text_test::Bytes;
using namespace std::string_literals;

// A binary file of the test, open for reading and writing and removed at the end.
class BinaryFile {
 public:
  explicit BinaryFile(const std::string& content = "")
      : path_(testing::TempDir() + "quarnfc_string_record_test.bin"),
        file_(std::fopen(path_.c_str(), "w+b")) {
    if (file_ == nullptr) return;
    std::fwrite(content.data(), 1, content.size(), file_);
    std::rewind(file_);
  }
  ~BinaryFile() {
    if (file_ != nullptr) std::fclose(file_);
    std::remove(path_.c_str());
  }
  BinaryFile(const BinaryFile&) = delete;
  BinaryFile& operator=(const BinaryFile&) = delete;

  operator FILE*() const { return file_; }
  long Position() const { return std::ftell(file_); }
  void Rewind() const { std::rewind(file_); }

  std::string Content() const {
    std::string content;
    std::rewind(file_);
    for (int ch; (ch = std::fgetc(file_)) != EOF;) content.push_back(static_cast<char>(ch));
    return content;
  }

 private:
  std::string path_;
  FILE* file_;
};

TEST(StringRecord, WritesALittleEndianCountTheTextAndATerminator) {
  struct {
    CQNString text;
    std::string record;
  } const cases[] = {
      {"abc", "\x04\0\0\0abc\0"s},
      {"", "\x01\0\0\0\0"s},
      {ZHONG, "\x03\0\0\0"s + ZHONG + "\0"s},
      {CQNString('x', 255), "\0\x01\0\0"s + std::string(255, 'x') + "\0"s},
      {CQNString('x', 70000), "\x71\x11\x01\0"s + std::string(70000, 'x') + "\0"s},
      {CQNString("a\0b", 3), "\x02\0\0\0a\0"s},  // up to the first zero byte
  };
  for (const auto& c : cases) {
    BinaryFile file;
    ASSERT_NE(static_cast<FILE*>(file), nullptr);
    WriteString(file, c.text);
    EXPECT_TRUE(file.Content() == c.record) << c.record.size();
  }
}

TEST(StringRecord, ReadsWhatWasWritten) {
  const CQNString texts[] = {"abc", "", ZHONG TRAIL_BACKSLASH, CQNString('x', 10239)};
  BinaryFile file;
  for (const CQNString& text : texts) WriteString(file, text);
  file.Rewind();
  for (const CQNString& text : texts) {
    CQNString read("old");
    EXPECT_TRUE(ReadString(file, read));
    EXPECT_EQ(Bytes(read), Bytes(text));
  }
  CQNString rest;
  EXPECT_FALSE(ReadString(file, rest));
}

TEST(StringRecord, TakesTheTextUpToItsFirstZero) {
  BinaryFile file("\x06\0\0\0ab\0cd\0"s);
  CQNString text;
  EXPECT_TRUE(ReadString(file, text));
  EXPECT_EQ(Bytes(text), "ab");
  EXPECT_EQ(file.Position(), 10);
}

TEST(StringRecord, TakesATextWithoutATerminator) {
  BinaryFile file("\x03\0\0\0abcdef"s);
  CQNString text;
  EXPECT_TRUE(ReadString(file, text));
  EXPECT_EQ(Bytes(text), "abc");
  EXPECT_EQ(file.Position(), 7);
}

TEST(StringRecord, AcceptsCountsFrom1To10240) {
  BinaryFile file("\0\x28\0\0"s + std::string(10239, 'x') + "\0"s);
  CQNString text;
  EXPECT_TRUE(ReadString(file, text));
  EXPECT_EQ(Bytes(text), std::string(10239, 'x'));
}

// The longest text that reads back has 10,239 bytes; a longer one is written whole all the same.
TEST(StringRecord, WritesTextsOfAnyLengthAndReadsThemUpToTheLargestCount) {
  for (const int length : {10238, 10239, 10240}) {
    BinaryFile file;
    WriteString(file, CQNString('x', length));
    EXPECT_EQ(file.Content().size(), static_cast<std::size_t>(length) + 5) << length;
    file.Rewind();
    CQNString text("old");
    const bool fits = length <= 10239;
    EXPECT_EQ(ReadString(file, text), fits) << length;
    EXPECT_EQ(Bytes(text), fits ? std::string(static_cast<std::size_t>(length), 'x') : "old");
    EXPECT_EQ(file.Position(), fits ? length + 5 : 4) << length;
  }
}

TEST(StringRecord, OtherCountsFailAfterTheFourCountBytes) {
  for (const std::string& count :
       {"\x01\x28\0\0"s, "\0\0\0\0"s, "\xFF\xFF\xFF\xFF"s, "\x01\0\0\x80"s, "\0\0\x01\0"s}) {
    BinaryFile file(count + std::string(20000, 'x'));
    CQNString text("old");
    EXPECT_FALSE(ReadString(file, text));
    EXPECT_EQ(Bytes(text), "old");
    EXPECT_EQ(file.Position(), 4);
  }
}

TEST(StringRecord, FewerThanFourCountBytesFail) {
  for (const std::string& content : {""s, "\x01"s, "\x01\0"s, "\x01\0\0"s}) {
    BinaryFile file(content);
    CQNString text("old");
    EXPECT_FALSE(ReadString(file, text));
    EXPECT_EQ(Bytes(text), "old");
    EXPECT_EQ(file.Position(), static_cast<long>(content.size()));
  }
}

TEST(StringRecord, ATruncatedTextFailsAtTheEndOfTheFile) {
  BinaryFile file("\x05\0\0\0abc"s);
  CQNString text("old");
  EXPECT_FALSE(ReadString(file, text));
  EXPECT_EQ(Bytes(text), "old");
  EXPECT_EQ(file.Position(), 7);
}

TEST(StringRecord, ANullFileIsHarmless) {
  CQNString text("old");
  EXPECT_FALSE(ReadString(nullptr, text));
  WriteString(nullptr, text);
  EXPECT_EQ(Bytes(text), "old");
}

}  // namespace
